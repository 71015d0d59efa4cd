// Reading one object record from the file, field by field. A field that
// cannot be read is reported and left at zero, and reading goes on with the
// next field, so a damaged record yields as much as could be read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "document/records.h"

namespace mirvane {

// Thrown instead of reporting while a POI's bitmap is suspect, so that the
// record can be read again with palette coding.
struct SuspectBitmapFailure {};

class FieldReader {
public:
    using FailureSink = std::function<void(int errorNumber)>;

    FieldReader(const Bytes& file, std::int64_t position, FailureSink onFailure)
        : file_(&file), position_(position), onFailure_(std::move(onFailure)) {}

    std::uint8_t U8();
    std::uint16_t U16();
    std::int32_t I32();
    Bytes Block(std::int64_t length);

    // Reports a run-time error through the sink, or throws while suspect.
    // Once a read has run past the end, later ones are not reported again:
    // they all fail for the same reason and would only swell the log.
    void Fail(int errorNumber);

    void Seek(std::int64_t position) { position_ = position; }

    void SetSuspect(bool suspect) { suspect_ = suspect; }
    std::int64_t Position() const { return position_; }

private:
    bool Available(std::int64_t length) const;
    std::uint32_t LittleEndian(int count);

    const Bytes* file_;
    std::int64_t position_;
    FailureSink onFailure_;
    bool suspect_ = false;
    bool reportedPastEnd_ = false;
};

void ReadPolygonRecord(FieldReader& in, PolygonRecord& record);
void ReadPolylineRecord(FieldReader& in, PolylineRecord& record);
// Reads a POI; throws SuspectBitmapFailure when a field fails while the day
// bitmap declares 0 colours and is not yet forced to palette coding.
void ReadPoiRecord(FieldReader& in, PoiRecord& record);

Bytes ReadLabelBlock(FieldReader& in);
Bytes ReadExtendedLabelBlock(FieldReader& in);

}  // namespace mirvane

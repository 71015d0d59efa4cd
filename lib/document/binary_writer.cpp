#include "document/binary_writer.h"

#include <algorithm>
#include <cstdio>

#include "base/file_io.h"
#include "document/encoding.h"
#include "document/file_messages.h"
#include "document/presentation.h"
#include "document/record_writer.h"
#include "document/run_time_errors.h"
#include "document/sorts.h"
#include "document/draw_order_table.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {

struct SaveError {
    int number;
};

// The file being built; writing at a position past the end grows it with zeros.
class ByteSink {
public:
    std::int64_t Position() const { return position_; }
    void Seek(std::int64_t position) { position_ = position; }

    void U8(std::uint8_t value) {
        if (position_ >= static_cast<std::int64_t>(bytes_.size())) bytes_.resize(position_ + 1);
        bytes_[static_cast<std::size_t>(position_++)] = value;
    }
    void U16(std::uint32_t value) { LittleEndian(value, 2); }
    void I32(std::int32_t value) { LittleEndian(static_cast<std::uint32_t>(value), 4); }
    void LittleEndian(std::uint64_t value, int width) {
        for (int i = 0; i < width; ++i) U8(static_cast<std::uint8_t>((value >> (8 * i)) & 0xFF));
    }
    void Append(const Bytes& block) {
        const std::size_t end = static_cast<std::size_t>(position_) + block.size();
        if (end > bytes_.size()) bytes_.resize(end);
        std::copy(block.begin(), block.end(), bytes_.begin() + position_);
        position_ = static_cast<std::int64_t>(end);
    }
    template <std::size_t N>
    void Raw(const std::array<std::uint8_t, N>& bytes) {
        for (std::uint8_t b : bytes) U8(b);
    }
    void Reserve(std::size_t size) { bytes_.reserve(size); }
    // Zeros at the end up to `size` bytes in all.
    void PadTo(std::int64_t size) {
        if (size > static_cast<std::int64_t>(bytes_.size())) bytes_.resize(static_cast<std::size_t>(size), 0);
    }
    Bytes Take() { return std::move(bytes_); }

private:
    Bytes bytes_;
    std::int64_t position_ = 0;
};

struct IndexRowOut {
    int Key = 0;
    std::int64_t Offset = 0;
};

// Offset width of an index row by the length of its data section.
int IndexRecordSize(std::int64_t dataLength) {
    if (dataLength <= 255) return 3;
    if (dataLength <= 65535) return 4;
    return 5;
}

// Key = type * 32 + subtype, computed as a 16-bit signed number: a type of
// 0x400 or more overflows and the save fails.
int IndexKey(const std::string& type, const std::string& subType) {
    const long key = static_cast<long>(HexValue(type)) * 32 + HexValue(subType);
    if (key > 32767) throw SaveError{kErrOverflow};
    return static_cast<int>(key);
}

class BinaryTypWriter {
public:
    BinaryTypWriter(Document& doc, const SaveTime& time) : doc_(doc), time_(time) {}

    Bytes Write() {
        SortRecords();
        headerSize_ = doc_.Identity.HeaderSize;
        out_.Reserve(EstimatedSize());
        out_.Seek(headerSize_);
        out_.Append(doc_.HeaderGapBytes);
        WritePolygons();
        WritePolylines();
        WritePois();
        WriteDrawOrder();
        SetHeader();
        PlaceRawSections();
        WriteHeader();
        WriteRawSections();
        out_.PadTo(readEnd_);
        return out_.Take();
    }

private:
    void SortRecords() {
        if (doc_.PolygonCount() > 1) SortPolygons(doc_.Polygons);
        if (doc_.PolylineCount > 1) SortPolylinesForWriting(doc_.Polylines);
        if (doc_.PoiCount() > 1) SortPois(doc_.Pois);
    }

    // Room for the whole file up front, so a large document is not copied
    // over and over while it grows.
    std::size_t EstimatedSize() const {
        std::size_t size = static_cast<std::size_t>(headerSize_) + doc_.HeaderGapBytes.size();
        for (const auto& r : doc_.Polygons) size += static_cast<std::size_t>(PolygonRecordLength(r)) + 5;
        for (const auto& r : doc_.Polylines) size += static_cast<std::size_t>(PolylineRecordLength(r)) + 7;
        for (const auto& r : doc_.Pois)
            size += static_cast<std::size_t>(PoiRecordLength(r)) + r.Bitmaps[0].PaletteBytes.size() + 5;
        size += doc_.DrawOrder.size() * 10 + doc_.ExtraPoiDataBytes.size() + doc_.ExtraPoiIndexBytes.size() +
                doc_.LabelTextBytes.size() + doc_.LabelTable1Bytes.size() + doc_.LabelTable2Bytes.size();
        return size;
    }

    struct Section {
        std::int32_t DataOffset = 0, DataLength = 0, IndexOffset = 0, IndexLength = 0;
        std::uint16_t RecordSize = 0;
    };

    // Where the header keeps the place of a polygon or POI section.
    struct SectionFields {
        std::int32_t TypHeader::*DataOffset;
        std::int32_t TypHeader::*DataLength;
        std::int32_t TypHeader::*IndexOffset;
        std::uint16_t TypHeader::*RecordSize;
        std::int32_t TypHeader::*IndexLength;
    };
    static constexpr SectionFields kPolygonFields{&TypHeader::PolygonDataOffset, &TypHeader::PolygonDataLength,
                                                  &TypHeader::PolygonIndexOffset, &TypHeader::PolygonIndexRecordSize,
                                                  &TypHeader::PolygonIndexLength};
    static constexpr SectionFields kPoiFields{&TypHeader::PoiDataOffset, &TypHeader::PoiDataLength,
                                              &TypHeader::PoiIndexOffset, &TypHeader::PoiIndexRecordSize,
                                              &TypHeader::PoiIndexLength};

    void StoreSection(const Section& s, const SectionFields& fields) {
        TypHeader& h = doc_.Header;
        h.*fields.DataOffset = s.DataOffset;
        h.*fields.DataLength = s.DataLength;
        h.*fields.IndexOffset = s.IndexOffset;
        h.*fields.RecordSize = s.RecordSize;
        h.*fields.IndexLength = s.IndexLength;
    }

    // A record written with source bytes shorter than its fields reads on
    // past them, as it did in its own file: the file must reach that far.
    template <typename Record>
    void WriteRecord(const Record& record, Bytes encoded) {
        readEnd_ = std::max(readEnd_, out_.Position() + static_cast<std::int64_t>(encoded.size()));
        out_.Append(RecordBytesToWrite(record, std::move(encoded)));
    }

    template <typename Record, typename WriteRecord>
    std::int64_t WriteData(std::vector<Record>& records, WriteRecord writeRecord) {
        const std::int64_t start = out_.Position();
        for (Record& record : records) {
            record.Offset = static_cast<std::int32_t>(out_.Position() - start);
            writeRecord(record);
        }
        return out_.Position() - start;
    }

    void WriteIndexRows(const std::vector<IndexRowOut>& rows, int recordSize) {
        for (const IndexRowOut& row : rows) {
            out_.U16(static_cast<std::uint16_t>(row.Key));
            out_.LittleEndian(static_cast<std::uint64_t>(row.Offset), recordSize - 2);
        }
    }

    // Data, then its index, for polygons and POIs.
    template <typename Record, typename WriteRecord>
    Section WriteObjectSection(std::vector<Record>& records, WriteRecord writeRecord) {
        Section section;
        if (records.empty()) return section;
        section.DataOffset = static_cast<std::int32_t>(out_.Position());
        section.DataLength = static_cast<std::int32_t>(WriteData(records, writeRecord));
        section.IndexOffset = static_cast<std::int32_t>(out_.Position());
        section.RecordSize = static_cast<std::uint16_t>(IndexRecordSize(section.DataLength));
        std::vector<IndexRowOut> rows;
        rows.reserve(records.size());
        for (const Record& r : records) rows.push_back({IndexKey(r.Type, r.SubType), r.Offset});
        WriteIndexRows(rows, section.RecordSize);
        section.IndexLength = static_cast<std::int32_t>(out_.Position() - section.IndexOffset);
        return section;
    }

    void WritePolygons() {
        const Section s = WriteObjectSection(doc_.Polygons, [this](const PolygonRecord& r) {
            WriteRecord(r, EncodePolygonRecord(r));
        });
        StoreSection(s, kPolygonFields);
    }

    void WritePois() {
        const Section s = WriteObjectSection(doc_.Pois, [this](const PoiRecord& r) {
            WriteRecord(r, EncodePoiRecord(r));
        });
        StoreSection(s, kPoiFields);
    }

    void WritePolylines();
    void WriteExtraPolylineIndex(std::vector<ExtraPolylineIndexRow>& extraRows);
    void WriteDrawOrder();
    void SetHeader();
    void PlaceRawSections();
    void WriteHeader();
    void WriteRawSections();

    Document& doc_;
    SaveTime time_;
    ByteSink out_;
    int headerSize_ = 0;
    std::int64_t readEnd_ = 0;
};

void BinaryTypWriter::WritePolylines() {
    TypHeader& h = doc_.Header;
    if (doc_.Polylines.empty()) {
        h.PolylineDataOffset = h.PolylineDataLength = h.PolylineIndexOffset = h.PolylineIndexLength = 0;
        h.PolylineIndexRecordSize = 0;
        if (h.HeaderSize >= 165) doc_.Extra4 = HeaderExtra4{};
        return;
    }
    h.PolylineDataOffset = static_cast<std::int32_t>(out_.Position());
    h.PolylineDataLength = static_cast<std::int32_t>(WriteData(doc_.Polylines, [this](const PolylineRecord& r) {
        WriteRecord(r, EncodePolylineRecord(r));
    }));
    h.PolylineIndexOffset = static_cast<std::int32_t>(out_.Position());
    h.PolylineIndexRecordSize = static_cast<std::uint16_t>(IndexRecordSize(h.PolylineDataLength));
    doc_.Extra4.ExtraPolylineIndexRecordSize = static_cast<std::uint16_t>(h.PolylineIndexRecordSize + 2);

    std::vector<IndexRowOut> regularRows;
    std::vector<ExtraPolylineIndexRow> extraRows(static_cast<std::size_t>(std::max(doc_.ExtraPolylineCount, 0)));
    std::size_t extraUsed = 0;
    for (const PolylineRecord& r : doc_.Polylines) {
        const int key = IndexKey(r.Type, r.SubType);
        if (r.ExtraIndexBytes[0] == 0 && r.ExtraIndexBytes[1] == 0) {
            regularRows.push_back({key, r.Offset});
            continue;
        }
        if (extraUsed >= extraRows.size()) throw SaveError{kErrOutOfRange};
        ExtraPolylineIndexRow& row = extraRows[extraUsed++];
        row.Key = key;
        row.ExtraKey = r.ExtraIndexBytes[1] * 256 + r.ExtraIndexBytes[0];
        row.OffsetBytes.clear();
        for (int i = 0; i < doc_.Extra4.ExtraPolylineIndexRecordSize - 4; ++i)
            row.OffsetBytes.push_back(static_cast<std::uint8_t>((r.Offset >> (8 * i)) & 0xFF));
    }
    WriteIndexRows(regularRows, h.PolylineIndexRecordSize);
    h.PolylineIndexLength = static_cast<std::int32_t>(out_.Position() - h.PolylineIndexOffset);
    WriteExtraPolylineIndex(extraRows);
}

// Only when the header held now, still that of the file that was read, has
// room for the routing index: a file read with a shorter header writes it
// from the next save on.
void BinaryTypWriter::WriteExtraPolylineIndex(std::vector<ExtraPolylineIndexRow>& extraRows) {
    if (doc_.Header.HeaderSize < 165) return;
    HeaderExtra4& e = doc_.Extra4;
    if (doc_.ExtraPolylineCount < 1) {
        e.ExtraPolylineIndexOffset = 0;
        e.ExtraPolylineIndexRecordSize = 0;
        e.ExtraPolylineIndexLength = 0;
        return;
    }
    SortExtraPolylineIndex(extraRows);
    e.ExtraPolylineIndexOffset = static_cast<std::int32_t>(out_.Position());
    for (const ExtraPolylineIndexRow& row : extraRows) {
        out_.U16(static_cast<std::uint16_t>(row.Key));
        out_.U16(static_cast<std::uint16_t>(row.ExtraKey));
        Bytes offset = row.OffsetBytes;
        offset.resize(static_cast<std::size_t>(std::max(e.ExtraPolylineIndexRecordSize - 4, 0)), 0);
        out_.Append(offset);
    }
    e.ExtraPolylineIndexLength = static_cast<std::int32_t>(out_.Position() - e.ExtraPolylineIndexOffset);
}

// One entry a type and level, subtypes gathered in its mask, one separator
// of five zero bytes before each higher level however large the step. The
// count starts at level 1, so that an empty first level (as mkgmap writes
// it) is kept.
void BinaryTypWriter::WriteDrawOrder() {
    TypHeader& h = doc_.Header;
    if (doc_.DrawOrder.empty()) {
        h.DrawOrderOffset = 0;
        h.DrawOrderRecordSize = 0;
        h.DrawOrderLength = 0;
        return;
    }
    h.DrawOrderOffset = static_cast<std::int32_t>(out_.Position());
    SortDrawOrder(doc_.DrawOrder);
    const std::vector<DrawOrderEntry>& table = doc_.DrawOrder;
    for (std::size_t i = 0; i < table.size(); ++i) {
        const DrawOrderEntry& entry = table[i];
        if (entry.Level > (i > 0 ? table[i - 1].Level : 1)) out_.LittleEndian(0, 5);
        if (i > 0 && entry.Level == table[i - 1].Level && entry.Type == table[i - 1].Type) continue;
        out_.U8(static_cast<std::uint8_t>(entry.Type & 0xFF));
        std::uint64_t mask = 0;
        if (entry.Type >= 256) {
            for (std::size_t j = i; j < table.size() && table[j].Level == entry.Level && table[j].Type == entry.Type;
                 ++j) {
                if (table[j].SubType > 31) throw SaveError{kErrOverflow};
                mask += std::uint64_t{1} << table[j].SubType;
            }
        }
        if (mask > 0xFFFFFFFFu) throw SaveError{kErrOverflow};
        out_.LittleEndian(mask, 4);
    }
    h.DrawOrderLength = static_cast<std::int32_t>(out_.Position() - h.DrawOrderOffset);
    h.DrawOrderRecordSize = 5;
}

void BinaryTypWriter::SetHeader() {
    TypHeader& h = doc_.Header;
    const TypIdentity& id = doc_.Identity;
    h.HeaderSize = static_cast<std::uint16_t>(headerSize_);
    const char signature[] = "GARMIN TYP";
    std::copy(signature, signature + 10, h.Signature.begin());
    h.FormatMark = 1;
    h.Year = static_cast<std::uint16_t>(time_.Year);
    h.Month = static_cast<std::uint8_t>(time_.Month);
    h.Day = static_cast<std::uint8_t>(time_.Day);
    h.Hour = static_cast<std::uint8_t>(time_.Hour);
    h.Minute = static_cast<std::uint8_t>(time_.Minute);
    h.Second = static_cast<std::uint8_t>(time_.Second);
    h.CodePage = static_cast<std::uint16_t>(id.CodePage);
    h.FamilyId = static_cast<std::int16_t>(id.Fid.value_or(0));
    h.ProductCode = static_cast<std::int16_t>(id.ProductCode.value_or(0));
}

// Additional sections stand behind the draw order, moved whole: their inner
// offsets are relative to their own sections and stay valid.
void BinaryTypWriter::PlaceRawSections() {
    const TypHeader& h = doc_.Header;
    std::int64_t e = static_cast<std::int64_t>(doc_.HeaderGapBytes.size()) + h.HeaderSize + h.PolygonDataLength +
                     h.PolygonIndexLength + h.PolylineDataLength + h.PolylineIndexLength +
                     doc_.Extra4.ExtraPolylineIndexLength + h.PoiDataLength + h.PoiIndexLength + h.DrawOrderLength;
    if (h.HeaderSize < 92) {
        doc_.Extra1 = {};
        doc_.Extra2 = {};
        doc_.Extra3 = {};
        doc_.Extra4 = {};
        return;
    }
    HeaderExtra1& x1 = doc_.Extra1;
    if (doc_.ExtraPoiCount < 1) {
        x1.ExtraPoiDataOffset = x1.ExtraPoiDataLength = x1.ExtraPoiIndexOffset = x1.ExtraPoiIndexLength = 0;
        x1.ExtraPoiIndexRecordSize = 0;
        x1.ExtraPoiMark = 31;
    } else {
        x1.ExtraPoiDataOffset = static_cast<std::int32_t>(e);
        x1.ExtraPoiDataLength = static_cast<std::int32_t>(doc_.ExtraPoiDataBytes.size());
        x1.ExtraPoiIndexOffset = static_cast<std::int32_t>(e + x1.ExtraPoiDataLength);
        x1.ExtraPoiIndexLength = static_cast<std::int32_t>(doc_.ExtraPoiIndexBytes.size());
        e = x1.ExtraPoiIndexOffset + static_cast<std::int64_t>(x1.ExtraPoiIndexLength);
    }
    if (h.HeaderSize < 111) {
        doc_.Extra2 = {};
        doc_.Extra3 = {};
        doc_.Extra4 = {};
        return;
    }
    // The three label sections are placed whenever one holds bytes, and each
    // declares the length it holds, so that none is ever declared at a stale
    // offset or past the end of the file.
    HeaderExtra2& x2 = doc_.Extra2;
    const bool labels = doc_.LabelCount > 0 || !doc_.LabelTextBytes.empty() || !doc_.LabelTable1Bytes.empty() ||
                        !doc_.LabelTable2Bytes.empty();
    x2.LabelTextOffset = labels ? static_cast<std::int32_t>(e) : 0;
    x2.LabelTextLength = static_cast<std::int32_t>(doc_.LabelTextBytes.size());
    x2.LabelTable1Offset = labels ? x2.LabelTextOffset + x2.LabelTextLength : 0;
    x2.LabelTable1Length = static_cast<std::int32_t>(doc_.LabelTable1Bytes.size());
    x2.LabelTable2Offset = labels ? x2.LabelTable1Offset + x2.LabelTable1Length : 0;
    x2.LabelTable2Length = static_cast<std::int32_t>(doc_.LabelTable2Bytes.size());
    if (h.HeaderSize < 157) {
        doc_.Extra3 = {};
        doc_.Extra4 = {};
    }
    if (h.HeaderSize < 165) doc_.Extra3 = {};
}

// Each extension is written only where the declared header has room for it,
// so that a short header of unknown size never overwrites section data.
void BinaryTypWriter::WriteHeader() {
    const TypHeader& h = doc_.Header;
    out_.Seek(0);
    out_.U16(h.HeaderSize);
    for (char c : h.Signature) out_.U8(static_cast<std::uint8_t>(c));
    out_.U16(h.FormatMark);
    out_.U16(h.Year);
    for (std::uint8_t b : {h.Month, h.Day, h.Hour, h.Minute, h.Second}) out_.U8(b);
    out_.U16(h.CodePage);
    for (std::int32_t v : {h.PoiDataOffset, h.PoiDataLength, h.PolylineDataOffset, h.PolylineDataLength,
                           h.PolygonDataOffset, h.PolygonDataLength})
        out_.I32(v);
    out_.U16(static_cast<std::uint16_t>(h.FamilyId));
    out_.U16(static_cast<std::uint16_t>(h.ProductCode));
    auto section = [this](std::int32_t offset, std::uint16_t size, std::int32_t length) {
        out_.I32(offset);
        out_.U16(size);
        out_.I32(length);
    };
    section(h.PoiIndexOffset, h.PoiIndexRecordSize, h.PoiIndexLength);
    section(h.PolylineIndexOffset, h.PolylineIndexRecordSize, h.PolylineIndexLength);
    section(h.PolygonIndexOffset, h.PolygonIndexRecordSize, h.PolygonIndexLength);
    section(h.DrawOrderOffset, h.DrawOrderRecordSize, h.DrawOrderLength);
    if (h.HeaderSize >= 110) {
        const HeaderExtra1& x = doc_.Extra1;
        section(x.ExtraPoiIndexOffset, x.ExtraPoiIndexRecordSize, x.ExtraPoiIndexLength);
        out_.U8(x.ExtraPoiMark);
        out_.I32(x.ExtraPoiDataOffset);
        out_.I32(x.ExtraPoiDataLength);
    }
    if (h.HeaderSize >= 156) {
        const HeaderExtra2& x = doc_.Extra2;
        out_.Raw(x.LabelReserved1);
        out_.I32(x.LabelTextOffset);
        out_.I32(x.LabelTextLength);
        out_.I32(x.LabelTable1RecordSize);
        out_.Raw(x.LabelReserved2);
        out_.I32(x.LabelTable1Offset);
        out_.I32(x.LabelTable1Length);
        out_.I32(x.LabelTable2RecordSize);
        out_.Raw(x.LabelReserved3);
        out_.I32(x.LabelTable2Offset);
        out_.I32(x.LabelTable2Length);
        out_.Raw(x.LabelReserved4);
    }
    // Bytes 156..163 are never written and stay zero.
    if (h.HeaderSize >= 174) {
        out_.Seek(164);
        section(doc_.Extra4.ExtraPolylineIndexOffset, doc_.Extra4.ExtraPolylineIndexRecordSize,
                doc_.Extra4.ExtraPolylineIndexLength);
    }
}

void BinaryTypWriter::WriteRawSections() {
    auto writeAt = [this](std::int32_t offset, const Bytes& bytes) {
        out_.Seek(offset);
        out_.Append(bytes);
    };
    if (doc_.Extra1.ExtraPoiIndexLength > 0) {
        writeAt(doc_.Extra1.ExtraPoiDataOffset, doc_.ExtraPoiDataBytes);
        writeAt(doc_.Extra1.ExtraPoiIndexOffset, doc_.ExtraPoiIndexBytes);
    }
    if (doc_.Extra2.LabelTextOffset > 0) {
        writeAt(doc_.Extra2.LabelTextOffset, doc_.LabelTextBytes);
        writeAt(doc_.Extra2.LabelTable1Offset, doc_.LabelTable1Bytes);
        writeAt(doc_.Extra2.LabelTable2Offset, doc_.LabelTable2Bytes);
    }
}

}  // namespace

std::optional<SaveFailure> BuildBinaryTyp(Document& doc, Bytes& out, const SaveTime& time) {
    if (const std::optional<MissingIdentity> missing = FindMissingIdentity(doc.Identity))
        return SaveFailure{0, missing->Text, missing->Title, WriteStatus::Written, {}};
    std::optional<SaveFailure> failure;
    try {
        out = BinaryTypWriter(doc, time).Write();
    } catch (const SaveError& error) {
        failure = SaveFailure{error.number, RunTimeDescription(error.number), {}, WriteStatus::Written, {}};
    }
    SortPolygons(doc.Polygons);
    SortPolylinesForDisplay(doc.Polylines);
    return failure;
}

std::optional<SaveFailure> SaveBinaryTyp(Document& doc, const std::string& path, const SaveTime& time,
                                         ReadOnlyTarget readOnly) {
    Bytes bytes;
    if (std::optional<SaveFailure> failure = BuildBinaryTyp(doc, bytes, time)) return failure;
    const WriteResult written = WriteFileAtomically(PathFromUtf8(path), bytes, readOnly);
    if (!written.Ok())
        return SaveFailure{kErrPathAccess, RunTimeDescription(kErrPathAccess), {}, written.Status, written.Reason};
    doc.ModifiedFlag = false;
    doc.TextAppliedFlag = false;
    return std::nullopt;
}

std::string SaveFailureMessage(const SaveFailure& failure) {
    if (failure.ErrorNumber == 0) return failure.Description;
    const std::string br = kLineBreak;
    return LookupText("Main", "Il y a eu une erreur lors de la création du fichier.", "msgErreurCreation") + br + br +
           LookupText("Main", "Erreur numéro", "msgErreurNumero") + "  " + std::to_string(failure.ErrorNumber) + br +
           LookupText("VBErrors", "Description", "Description") + ": " +
           LookupText("VBErrors", RunTimeDescription(failure.ErrorNumber), "Err" + std::to_string(failure.ErrorNumber)) +
           (failure.Write == WriteStatus::Written ? std::string() : br + WriteFailureText(failure.Write, failure.Reason));
}

}  // namespace mirvane

#include "document/binary_reader.h"

#include <algorithm>
#include <cmath>

#include "base/codepage.h"
#include "document/encoding.h"
#include "document/error_log.h"
#include "document/presentation.h"
#include "document/record_reader.h"
#include "document/record_writer.h"
#include "document/run_time_errors.h"
#include "document/sorts.h"
#include "document/draw_order_table.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {

// Offsets of a data section sorted once, so that the distance from a record
// to the next one is a binary search instead of a scan of all records.
class NextOffsetFinder {
public:
    template <typename Record>
    explicit NextOffsetFinder(const std::vector<Record>& records) {
        offsets_.reserve(records.size());
        for (const auto& r : records) offsets_.push_back(r.Offset);
        std::sort(offsets_.begin(), offsets_.end());
    }

    // Smallest positive difference to another record's offset, else the
    // rest of the section.
    std::int64_t DistanceToNext(std::int32_t offset, std::int32_t sectionLength) const {
        const auto next = std::upper_bound(offsets_.begin(), offsets_.end(), offset);
        if (next != offsets_.end() && static_cast<std::int64_t>(*next) - offset < 0xFFFFFFF)
            return static_cast<std::int64_t>(*next) - offset;
        return static_cast<std::int64_t>(sectionLength) - offset;
    }

private:
    std::vector<std::int32_t> offsets_;
};

// Colour layouts 2 and 4, which only some older editors wrote.
bool IsRareLayout(std::uint8_t flags) { return (flags & 7) == 2 || (flags & 7) == 4; }

class BinaryTypReader {
public:
    BinaryTypReader(Document& doc, const Bytes& file) : doc_(doc), file_(file) {}

    void Read(const std::string& path) {
        doc_.SetPath(path);
        ReadHeader();
        ReadIndexes();
        ReadDrawOrder();
        ReadExtraPoiRows();
        ReadPolygons();
        ReadPolylines();
        ReadPois();
        ReadGap();
        context_ = {};
        log_.Finish();
        doc_.State = DocumentState::Loaded;
    }

private:
    FieldReader At(std::int64_t position) {
        return FieldReader(file_, position, [this](int number) { LogRunTimeError(number); });
    }

    // Errors are of one kind when they have the same number in the same
    // kind of record, whatever its type.
    void LogRunTimeError(int number) {
        log_.Add(context_.Key + std::to_string(number), [&] {
            std::string text = kLineBreak;
            if (context_.Key.empty())
                text += MainText("Erreur inconnue lors de l'ouverture du fichier : erreur n°", "msgErreurOuverture");
            else
                text += LookupText("Main", context_.Default, context_.Key) + " 0x" + context_.Type + "/" +
                        context_.SubType + " : erreur n°";
            return text + std::to_string(number) + RunTimeErrorDetails(number);
        });
    }

    template <typename MakeText>
    void LogLine(std::string_view kind, MakeText&& makeText) {
        log_.Add(kind, [&] { return kLineBreak + makeText(); });
    }

    // The record being read, named in its errors.
    struct Context {
        std::string Default, Key, Type, SubType;
    };
    void SetContext(const char* defaultText, const char* key, const std::string& type, const std::string& subType) {
        context_ = {defaultText, key, type, subType};
    }

    // A record unchanged since now is written back with the bytes it was
    // read from, unless they hold a colour layout few decoders know. They are
    // kept up to the size of the file in all, so that records sharing an
    // offset cannot make a small file take much memory.
    template <typename Record>
    void KeepSource(Record& record, std::int32_t base, std::int64_t distance, Bytes encoded,
                    bool rareLayout) {
        const std::int64_t size = static_cast<std::int64_t>(file_.size());
        const std::int64_t start = static_cast<std::int64_t>(base) + record.Offset;
        if (rareLayout || distance <= 0 || start < 0 || start + distance > size || keptBytes_ + distance > size)
            return;
        const auto first = file_.begin() + start;
        if (std::equal(first, first + distance, encoded.begin(), encoded.end())) return;
        record.Source = {Bytes(first, first + distance), std::move(encoded)};
        keptBytes_ += distance;
    }

    void ReadHeader();
    void ReadHeaderExtensions();
    void ReadRawSections();
    void CheckSignature();
    void FillIdentity();

    std::optional<int> IndexRowCount(std::int32_t length, std::uint16_t recordSize);
    template <typename Record, typename RowReader>
    void ReadIndex(std::vector<Record>& records, std::int32_t offset, std::int32_t length,
                   std::uint16_t recordSize, bool append, RowReader readRow);
    void ReadIndexes();
    void ReadDrawOrder();
    void ReadExtraPoiRows();
    void ReadPolygons();
    void ReadPolylines();
    void ReadPois();
    void ReadOnePoi(PoiRecord& poi, const NextOffsetFinder& next);
    void ReadGap();
    void LogInvalidBitmap(const PoiRecord& poi);

    Document& doc_;
    const Bytes& file_;
    Context context_;
    CappedErrorLog log_{doc_};
    std::int64_t keptBytes_ = 0;
};

void BinaryTypReader::ReadHeader() {
    doc_.FileLengthText = std::to_string(file_.size());
    TypHeader& h = doc_.Header;
    FieldReader in = At(0);
    h.HeaderSize = in.U16();
    for (char& c : h.Signature) c = static_cast<char>(in.U8());
    h.FormatMark = in.U16();
    h.Year = in.U16();
    h.Month = in.U8();
    h.Day = in.U8();
    h.Hour = in.U8();
    h.Minute = in.U8();
    h.Second = in.U8();
    h.CodePage = in.U16();
    h.PoiDataOffset = in.I32();
    h.PoiDataLength = in.I32();
    h.PolylineDataOffset = in.I32();
    h.PolylineDataLength = in.I32();
    h.PolygonDataOffset = in.I32();
    h.PolygonDataLength = in.I32();
    h.FamilyId = static_cast<std::int16_t>(in.U16());
    h.ProductCode = static_cast<std::int16_t>(in.U16());
    h.PoiIndexOffset = in.I32();
    h.PoiIndexRecordSize = in.U16();
    h.PoiIndexLength = in.I32();
    h.PolylineIndexOffset = in.I32();
    h.PolylineIndexRecordSize = in.U16();
    h.PolylineIndexLength = in.I32();
    h.PolygonIndexOffset = in.I32();
    h.PolygonIndexRecordSize = in.U16();
    h.PolygonIndexLength = in.I32();
    h.DrawOrderOffset = in.I32();
    h.DrawOrderRecordSize = in.U16();
    h.DrawOrderLength = in.I32();

    CheckSignature();
    // Old files stored years since 1900.
    if (h.Year < 2000) h.Year = static_cast<std::uint16_t>(h.Year + 1900);
    if (h.Month > 12) h.Month = 12;
    FillIdentity();
    doc_.PoiDataBase = h.PoiDataOffset;
    doc_.PolylineDataBase = h.PolylineDataOffset;
    doc_.PolygonDataBase = h.PolygonDataOffset;
    doc_.DrawOrderBase = h.DrawOrderOffset;
    ReadHeaderExtensions();
    ReadRawSections();
}

void BinaryTypReader::CheckSignature() {
    if (HasTypSignature(doc_.Header)) return;
    const std::string rule(150, '-');
    doc_.ReadErrorFlag = true;
    doc_.ReadErrorLog += kLineBreak + rule + kLineBreak +
                         MainText("Le fichier semble être corrompu ou ne pas être un fichier TYP valide",
                                  "msgTYPNonValide") +
                         kLineBreak + rule + kLineBreak + kLineBreak + kLineBreak;
}

void BinaryTypReader::FillIdentity() {
    const TypHeader& h = doc_.Header;
    TypIdentity& id = doc_.Identity;
    id.Fid = static_cast<std::uint16_t>(h.FamilyId);
    id.ProductCode = static_cast<std::uint16_t>(h.ProductCode);
    id.HeaderSize = h.HeaderSize;
    // A code page the program does not list is logged and kept; a file
    // without one (0, as some compilers leave it) is saved with the default.
    if (h.CodePage != 0 && !IsListedCodePage(h.CodePage)) LogRunTimeError(kErrInvalidPropertyValue);
    if (h.CodePage != 0) id.CodePage = h.CodePage;
}

void BinaryTypReader::ReadHeaderExtensions() {
    const int size = doc_.Header.HeaderSize;
    if (size >= 110) {
        FieldReader in = At(91);
        HeaderExtra1& e = doc_.Extra1;
        e.ExtraPoiIndexOffset = in.I32();
        e.ExtraPoiIndexRecordSize = in.U16();
        e.ExtraPoiIndexLength = in.I32();
        e.ExtraPoiMark = in.U8();
        e.ExtraPoiDataOffset = in.I32();
        e.ExtraPoiDataLength = in.I32();
    }
    if (size >= 156) {
        FieldReader in = At(110);
        HeaderExtra2& e = doc_.Extra2;
        for (auto& b : e.LabelReserved1) b = in.U8();
        e.LabelTextOffset = in.I32();
        e.LabelTextLength = in.I32();
        e.LabelTable1RecordSize = in.I32();
        for (auto& b : e.LabelReserved2) b = in.U8();
        e.LabelTable1Offset = in.I32();
        e.LabelTable1Length = in.I32();
        e.LabelTable2RecordSize = in.I32();
        for (auto& b : e.LabelReserved3) b = in.U8();
        e.LabelTable2Offset = in.I32();
        e.LabelTable2Length = in.I32();
        for (auto& b : e.LabelReserved4) b = in.U8();
    }
    // A header of exactly 164 leaves these eight bytes unread: the threshold is deliberate.
    if (size >= 168) {
        FieldReader in = At(156);
        for (auto& b : doc_.Extra3.Raw) b = in.U8();
    }
    if (size >= 174) {
        FieldReader in = At(164);
        HeaderExtra4& e = doc_.Extra4;
        e.ExtraPolylineIndexOffset = in.I32();
        e.ExtraPolylineIndexRecordSize = in.U16();
        e.ExtraPolylineIndexLength = in.I32();
    }
}

// Division of a section length by its row size, rounded to nearest (ties to
// even) into a 16-bit count; what does not fit is reported.
static std::optional<int> RoundedQuotient(std::int64_t length, std::int64_t size, int& error) {
    if (size == 0) {
        error = kErrDivisionByZero;
        return std::nullopt;
    }
    const double quotient = std::nearbyint(static_cast<double>(length) / static_cast<double>(size));
    if (quotient > 32767 || quotient < -32768) {
        error = kErrOverflow;
        return std::nullopt;
    }
    return static_cast<int>(quotient);
}

void BinaryTypReader::ReadRawSections() {
    const int size = doc_.Header.HeaderSize;
    auto readSection = [this](Bytes& into, std::int32_t offset, std::int32_t length) {
        if (length > 0) {
            FieldReader in = At(offset);
            into = in.Block(length);
        }
    };
    auto countRows = [this](std::int32_t length, std::int64_t rowSize) {
        int error = 0;
        const std::optional<int> count = RoundedQuotient(length, rowSize, error);
        if (!count) LogRunTimeError(error);
        return count.value_or(0);
    };
    if (size >= 110) {
        const HeaderExtra1& e = doc_.Extra1;
        readSection(doc_.ExtraPoiDataBytes, e.ExtraPoiDataOffset, e.ExtraPoiDataLength);
        readSection(doc_.ExtraPoiIndexBytes, e.ExtraPoiIndexOffset, e.ExtraPoiIndexLength);
        if (e.ExtraPoiDataLength > 0) doc_.ExtraPoiCount = countRows(e.ExtraPoiIndexLength, e.ExtraPoiIndexRecordSize);
    }
    if (size >= 156) {
        const HeaderExtra2& e = doc_.Extra2;
        readSection(doc_.LabelTextBytes, e.LabelTextOffset, e.LabelTextLength);
        readSection(doc_.LabelTable1Bytes, e.LabelTable1Offset, e.LabelTable1Length);
        readSection(doc_.LabelTable2Bytes, e.LabelTable2Offset, e.LabelTable2Length);
        if (e.LabelTable1Length > 0) doc_.LabelCount = countRows(e.LabelTable1Length, e.LabelTable1RecordSize);
    }
}

std::optional<int> BinaryTypReader::IndexRowCount(std::int32_t length, std::uint16_t recordSize) {
    int error = 0;
    const std::optional<int> count = RoundedQuotient(length, recordSize, error);
    if (!count) {
        LogRunTimeError(error);
        return std::nullopt;
    }
    if (*count < 0) {
        LogRunTimeError(kErrOutOfRange);  // the record array cannot be dimensioned
        return std::nullopt;
    }
    return count;
}

// Bytes of one index row. The index is `extent` bytes long, of which the
// buffer holds what the file had (its end was reported when it was read):
// the rest reads as zeros. A row reaching outside the index is out of range.
class IndexRow {
public:
    IndexRow(const Bytes& buffer, std::int64_t extent, std::int64_t start, int size)
        : buffer_(buffer), extent_(extent), start_(start), size_(size) {}
    std::uint8_t operator[](std::int64_t i) {
        const std::int64_t at = start_ + i;
        if (i < 0 || at < 0 || at >= extent_) {
            outOfRange_ = true;
            return 0;
        }
        return at < static_cast<std::int64_t>(buffer_.size()) ? buffer_[static_cast<std::size_t>(at)] : 0;
    }
    // Little-endian number of bytes [from, to); more than four bytes overflow.
    // Only the bytes inside the buffer are visited, so rows of an absurd size
    // cost no more than the buffer holds.
    std::int64_t Number(int from, int to) {
        if (from < 0 || start_ + from < 0 || start_ + to > extent_) outOfRange_ = true;
        const std::int64_t size = std::min<std::int64_t>(static_cast<std::int64_t>(buffer_.size()), extent_);
        const std::int64_t first = std::clamp<std::int64_t>(start_ + from, 0, size);
        const std::int64_t last = std::clamp<std::int64_t>(start_ + to, 0, size);
        std::int64_t value = 0;
        for (std::int64_t at = last - 1; at >= first; --at) {
            const std::int64_t place = at - (start_ + from);
            const std::uint8_t byte = buffer_[static_cast<std::size_t>(at)];
            if (place >= 4 && byte != 0) overflow_ = true;
            if (place < 4) value = value * 256 + byte;
        }
        return value;
    }
    int Size() const { return size_; }
    bool OutOfRange() const { return outOfRange_; }
    bool Overflow() const { return overflow_; }

private:
    const Bytes& buffer_;
    std::int64_t extent_;
    std::int64_t start_;
    int size_;
    bool outOfRange_ = false;
    bool overflow_ = false;
};

// Of `declared` rows of `rowSize` bytes, those that begin inside the `held`
// bytes the file has.
static int RowsHeld(int declared, std::size_t held, int rowSize) {
    if (rowSize <= 0) return 0;
    const std::int64_t begun = (static_cast<std::int64_t>(held) + rowSize - 1) / rowSize;
    return static_cast<int>(std::min<std::int64_t>(declared, begun));
}

template <typename Record>
static void SetTypeFromKey(Record& record, IndexRow& row) {
    const std::uint8_t low = row[0];
    const std::uint8_t high = row[1];
    record.Type = TypeText(high * 8 + (low >> 5));
    record.SubType = SubTypeText(low & 31);
}

template <typename Record, typename RowReader>
void BinaryTypReader::ReadIndex(std::vector<Record>& records, std::int32_t offset, std::int32_t length,
                                std::uint16_t recordSize, bool append, RowReader readRow) {
    const std::optional<int> declared = IndexRowCount(length, recordSize);
    if (!declared || *declared == 0) return;
    // The buffer holds only what the file has (its end is logged); a row cut
    // by the end reads zeros where the file stops, and rows wholly past the
    // end make no records, so that a few bytes never declare thousands.
    FieldReader in = At(offset);
    const std::int64_t extent = static_cast<std::int64_t>(*declared) * recordSize;
    const Bytes buffer = in.Block(extent);
    const int count = RowsHeld(*declared, buffer.size(), recordSize);
    const std::size_t first = append ? records.size() : 0;
    if (!append) records.clear();
    records.resize(first + count);
    for (int i = 0; i < count; ++i) {
        IndexRow row(buffer, extent, static_cast<std::int64_t>(i) * recordSize, recordSize);
        Record& record = records[first + i];
        SetTypeFromKey(record, row);
        readRow(record, row);
        if (row.OutOfRange()) LogRunTimeError(kErrOutOfRange);
        if (row.Overflow()) LogRunTimeError(kErrOverflow);
    }
}

void BinaryTypReader::ReadIndexes() {
    const TypHeader& h = doc_.Header;
    auto plainOffset = [](auto& record, IndexRow& row) {
        record.Offset = static_cast<std::int32_t>(row.Number(2, row.Size()));
    };
    if (doc_.PolygonDataBase >= 1)
        ReadIndex(doc_.Polygons, h.PolygonIndexOffset, h.PolygonIndexLength, h.PolygonIndexRecordSize, false,
                  plainOffset);
    if (doc_.PolylineDataBase >= 1) {
        ReadIndex(doc_.Polylines, h.PolylineIndexOffset, h.PolylineIndexLength, h.PolylineIndexRecordSize, false,
                  plainOffset);
        doc_.PolylineCount = static_cast<int>(doc_.Polylines.size());
    }
    const HeaderExtra4& e = doc_.Extra4;
    if (e.ExtraPolylineIndexOffset >= 1) {
        const std::size_t before = doc_.Polylines.size();
        ReadIndex(doc_.Polylines, e.ExtraPolylineIndexOffset, e.ExtraPolylineIndexLength,
                  e.ExtraPolylineIndexRecordSize, true, [](PolylineRecord& record, IndexRow& row) {
                      record.ExtraIndexBytes = {row[2], row[3]};
                      record.Offset = static_cast<std::int32_t>(row.Number(4, row.Size()));
                  });
        doc_.ExtraPolylineCount = static_cast<int>(doc_.Polylines.size() - before);
    }
    if (doc_.PoiDataBase >= 1)
        ReadIndex(doc_.Pois, h.PoiIndexOffset, h.PoiIndexLength, h.PoiIndexRecordSize, false, plainOffset);
}

// Levels are not stored: each separator of five zero bytes starts the next.
// A zero type byte with subtypes in its mask is type 0x100, not a separator.
// Only one separator is stepped over at a time, so two in a row give an
// entry of type 0.
void BinaryTypReader::ReadDrawOrder() {
    const int length = At(87).U16();
    At(85).U8();  // the record size byte is read but the walk always steps by 5
    const std::int64_t base = doc_.DrawOrderBase;
    FieldReader in = At(base);
    int level = 1;
    for (int p = 1; p <= length; p += 5) {
        in.Seek(base + p - 1);
        std::uint8_t type = in.U8();
        if (type == 0 && (p + 4 > length || in.I32() == 0)) {
            p += 5;
            in.Seek(base + p - 1);
            type = in.U8();
            ++level;
        }
        if (p > length) break;
        in.Seek(base + p);
        const std::uint32_t mask = static_cast<std::uint32_t>(in.I32());
        if (mask == 0) {
            doc_.DrawOrder.push_back({level, type, 0});
            continue;
        }
        for (int bit = 0; bit < 32; ++bit)
            if (mask & (1u << bit)) doc_.DrawOrder.push_back({level, type + 256, bit});
    }
    SortDrawOrder(doc_.DrawOrder);
}

// Rows wholly past the end of the index bytes the file holds make no records.
void BinaryTypReader::ReadExtraPoiRows() {
    const int size = doc_.Extra1.ExtraPoiIndexRecordSize;
    const int count = RowsHeld(doc_.ExtraPoiCount, doc_.ExtraPoiIndexBytes.size(), size);
    if (count < 1) return;
    doc_.ExtraPois.resize(count);
    for (int i = 0; i < count; ++i) {
        IndexRow row(doc_.ExtraPoiIndexBytes, static_cast<std::int64_t>(doc_.ExtraPoiIndexBytes.size()),
                     static_cast<std::int64_t>(i) * size, size);
        ExtraPoiRecord& record = doc_.ExtraPois[i];
        SetTypeFromKey(record, row);
        record.Offset = static_cast<std::int32_t>(row.Number(size - 3, size));  // always the last three bytes
        if (row.OutOfRange()) LogRunTimeError(kErrOutOfRange);
    }
}

static std::string TypeAndSubType(const std::string& type, const std::string& subType) {
    return " Type=0x" + type + "   SubType=0x" + subType;
}

void BinaryTypReader::ReadPolygons() {
    const NextOffsetFinder next(doc_.Polygons);
    for (PolygonRecord& polygon : doc_.Polygons) {
        SetContext("Erreur dans la lecture du polygone", "msgErreurPolygone", polygon.Type, polygon.SubType);
        FieldReader in = At(static_cast<std::int64_t>(doc_.PolygonDataBase) + polygon.Offset);
        ReadPolygonRecord(in, polygon);
        const std::int64_t distance = next.DistanceToNext(polygon.Offset, doc_.Header.PolygonDataLength);
        polygon.Length = static_cast<std::int32_t>(distance);
        KeepSource(polygon, doc_.PolygonDataBase, distance, EncodePolygonRecord(polygon), IsRareLayout(polygon.Flags));
        if (PolygonRecordLength(polygon) != distance)
            LogLine("msgErreurPolygone2", [&] {
                return MainText("Erreur dans la longueur du polygone", "msgErreurPolygone2") +
                       TypeAndSubType(polygon.Type, polygon.SubType);
            });
    }
}

// Active-routing lines share the data section of the regular ones, which
// may hold them alone.
void BinaryTypReader::ReadPolylines() {
    if (!doc_.Polylines.empty() && doc_.PolylineDataBase >= 1) {
        const NextOffsetFinder next(doc_.Polylines);
        for (PolylineRecord& polyline : doc_.Polylines) {
            SetContext("Erreur dans la lecture de la polyligne", "msgErreurPolyligne", polyline.Type,
                       polyline.SubType);
            FieldReader in = At(static_cast<std::int64_t>(doc_.PolylineDataBase) + polyline.Offset);
            ReadPolylineRecord(in, polyline);
            polyline.Length = PolylineRecordLength(polyline);
            KeepSource(polyline, doc_.PolylineDataBase,
                       next.DistanceToNext(polyline.Offset, doc_.Header.PolylineDataLength),
                       EncodePolylineRecord(polyline), IsRareLayout(polyline.Flags1));
        }
    }
    SortPolylinesForDisplay(doc_.Polylines);
}

void BinaryTypReader::ReadPois() {
    const NextOffsetFinder next(doc_.Pois);
    for (PoiRecord& poi : doc_.Pois) {
        SetContext("Erreur dans la lecture du POI", "msgErreurPOI", poi.Type, poi.SubType);
        ReadOnePoi(poi, next);
        KeepSource(poi, doc_.PoiDataBase, poi.Length, EncodePoiRecord(poi), false);
    }
}

static void ClearPoiContent(PoiRecord& poi) {
    const bool forced = poi.Bitmaps[0].ForcePalette;
    PoiRecord cleared;
    cleared.Type = std::move(poi.Type);
    cleared.SubType = std::move(poi.SubType);
    cleared.Offset = poi.Offset;
    cleared.Bitmaps[0].ForcePalette = forced;
    poi = std::move(cleared);
}

// A day bitmap that declares 0 colours but does not fit as true colour is
// read once more with palette coding; ForcePalette bounds this to one retry.
void BinaryTypReader::ReadOnePoi(PoiRecord& poi, const NextOffsetFinder& next) {
    for (;;) {
        ClearPoiContent(poi);
        FieldReader in = At(static_cast<std::int64_t>(doc_.PoiDataBase) + poi.Offset);
        try {
            ReadPoiRecord(in, poi);
        } catch (const SuspectBitmapFailure&) {
            poi.Bitmaps[0].ForcePalette = true;
            continue;
        }
        const std::int64_t distance = next.DistanceToNext(poi.Offset, doc_.Header.PoiDataLength);
        poi.Length = static_cast<std::int32_t>(distance);
        if (PoiRecordLength(poi) == distance) return;
        PoiBitmap& day = poi.Bitmaps[0];
        if (day.ColourCount == 0 && !day.ForcePalette) {
            LogInvalidBitmap(poi);
            day.ForcePalette = true;
            continue;
        }
        LogLine("msgErreurPOI2", [&] {
            std::string line = MainText("Erreur dans la longueur du POI", "msgErreurPOI2") +
                               TypeAndSubType(poi.Type, poi.SubType);
            if ((poi.Flags & 0x02) && poi.Bitmaps[1].ColourCount == 0)
                line += "  .Le bitmap de nuit n'a pas de palette (0 couleur) et semble corrompu.";
            return line;
        });
        return;
    }
}

void BinaryTypReader::LogInvalidBitmap(const PoiRecord& poi) {
    const std::string br = kLineBreak;
    log_.Add("msgBitmapInvalide1", [&] { return MainText("Le bitmap", "msgBitmapInvalide1") + TypeAndSubType(poi.Type, poi.SubType) + " " +
                         MainText("est invalide.", "msgBitmapInvalide2") + br +
                         MainText("Détails: le nombre de couleurs du bitmap est 0 (comme s'il s'agissait d'un "
                                  "bitmap TrueColor),",
                                  "msgBitmapInvalide3") +
                         br + MainText("mais il est codé comme un bitmap avec palette.", "msgBitmapInvalide4") + br +
                         MainText("Mirvane pourra malgré tout l'enregistrer sous cette forme, mais le POI sera très "
                                  "certainement inutilisable.",
                                  "msgBitmapInvalide5") +
                         br +
                         MainText("Il vaut mieux l'enregistrer en ajoutant une couleur dans la palette.",
                                  "msgBitmapInvalide6") +
                         br + br + br; });
}

void BinaryTypReader::ReadGap() {
    const TypHeader& h = doc_.Header;
    std::int64_t end = static_cast<std::int64_t>(file_.size());
    auto consider = [&end](std::int32_t offset) {
        if (offset > 0 && offset < end) end = offset;
    };
    for (std::int32_t offset : {h.PolygonDataOffset, h.PolylineDataOffset, h.PoiDataOffset, h.DrawOrderOffset})
        consider(offset);
    if (h.HeaderSize >= 110) {
        consider(doc_.Extra1.ExtraPoiDataOffset);
        consider(doc_.Extra1.ExtraPoiIndexOffset);
    }
    if (h.HeaderSize >= 156) {
        consider(doc_.Extra2.LabelTextOffset);
        consider(doc_.Extra2.LabelTable1Offset);
        consider(doc_.Extra2.LabelTable2Offset);
    }
    if (end > h.HeaderSize) doc_.HeaderGapBytes.assign(file_.begin() + h.HeaderSize, file_.begin() + end);
}

}  // namespace

bool HasTypSignature(const TypHeader& header) {
    static constexpr char kSignature[] = "GARMIN TYP";
    return std::equal(header.Signature.begin(), header.Signature.end(), kSignature);
}

void ReadBinaryTyp(Document& doc, const Bytes& file, const std::string& path) {
    doc.Reset();
    BinaryTypReader(doc, file).Read(path);
}

bool OpenBinaryTyp(Document& doc, const std::string& path) {
    Bytes file;
    if (!ReadWholeFile(path, file)) return false;
    ReadBinaryTyp(doc, file, path);
    return true;
}

}  // namespace mirvane

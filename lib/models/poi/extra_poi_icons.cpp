#include "models/poi/extra_poi_icons.h"

#include "document/binary_writer.h"
#include "document/record_reader.h"
#include "labels/label_block.h"

namespace mirvane {

namespace {

// The count of sub-icons, then a byte the groups carry without use.
constexpr std::size_t kGroupHeaderLength = 2;
constexpr int kIndexOffsetBytes = 3;

std::optional<std::size_t> GroupStart(const Document& doc, int group) {
    if (group < 0 || group >= static_cast<int>(doc.ExtraPois.size())) return std::nullopt;
    const auto offset = doc.ExtraPois[static_cast<std::size_t>(group)].Offset;
    if (offset < 0 || static_cast<std::size_t>(offset) >= doc.ExtraPoiDataBytes.size()) return std::nullopt;
    return static_cast<std::size_t>(offset);
}

// The index rows keep each group's offset in their last three bytes.
void MoveGroupsBehind(Document& doc, std::size_t after, std::ptrdiff_t delta) {
    const int rowSize = doc.Extra1.ExtraPoiIndexRecordSize;
    for (std::size_t i = 0; i < doc.ExtraPois.size(); ++i) {
        ExtraPoiRecord& row = doc.ExtraPois[i];
        if (row.Offset <= static_cast<std::int32_t>(after)) continue;
        row.Offset += static_cast<std::int32_t>(delta);
        const std::size_t at = (i + 1) * static_cast<std::size_t>(rowSize) - kIndexOffsetBytes;
        if (rowSize < kIndexOffsetBytes || at + kIndexOffsetBytes > doc.ExtraPoiIndexBytes.size()) continue;
        for (int b = 0; b < kIndexOffsetBytes; ++b)
            doc.ExtraPoiIndexBytes[at + static_cast<std::size_t>(b)] = static_cast<std::uint8_t>(row.Offset >> (8 * b));
    }
}

}  // namespace

std::vector<SubIconSpan> SubIconSpans(const Document& doc, int group) {
    const auto start = GroupStart(doc, group);
    if (!start) return {};
    const Bytes& data = doc.ExtraPoiDataBytes;
    const int count = data[*start];
    std::vector<SubIconSpan> spans;
    std::size_t at = *start + kGroupHeaderLength;
    for (int i = 0; i < count && at < data.size(); ++i) {
        const std::uint8_t second = at + 1 < data.size() ? data[at + 1] : 0;
        const auto length = static_cast<std::size_t>(LabelBlockLength(data[at], second));
        if (length == 0 || at + length > data.size()) break;
        spans.push_back({at, length});
        at += length;
    }
    return spans;
}

std::optional<PoiRecord> ReadSubIcon(const Document& doc, int group, int subIcon) {
    const auto spans = SubIconSpans(doc, group);
    if (subIcon < 0 || subIcon >= static_cast<int>(spans.size())) return std::nullopt;
    const SubIconSpan& span = spans[static_cast<std::size_t>(subIcon)];
    const std::size_t prefix = LabelPrefixIsOneByte(doc.ExtraPoiDataBytes[span.Start]) ? 1 : 2;
    const Bytes body(doc.ExtraPoiDataBytes.begin() + static_cast<std::ptrdiff_t>(span.Start + prefix),
                     doc.ExtraPoiDataBytes.begin() + static_cast<std::ptrdiff_t>(span.Start + span.Length));
    bool failed = false;
    FieldReader in(body, 0, [&failed](int) { failed = true; });
    PoiRecord record;
    try {
        ReadPoiRecord(in, record);
    } catch (const SuspectBitmapFailure&) {
        failed = true;
    }
    if (failed) return std::nullopt;
    const ExtraPoiRecord& row = doc.ExtraPois[static_cast<std::size_t>(group)];
    record.Type = row.Type;
    record.SubType = row.SubType;
    return record;
}

Bytes SubIconBytes(const PoiRecord& record) { return PrefixedLabelBlock(EncodePoiRecord(record)); }

bool WriteSubIcon(Document& doc, int group, int subIcon, const PoiRecord& record) {
    const auto spans = SubIconSpans(doc, group);
    if (subIcon < 0 || subIcon >= static_cast<int>(spans.size())) return false;
    const SubIconSpan& span = spans[static_cast<std::size_t>(subIcon)];
    const Bytes bytes = SubIconBytes(record);
    Bytes& data = doc.ExtraPoiDataBytes;
    const auto first = data.begin() + static_cast<std::ptrdiff_t>(span.Start);
    data.erase(first, first + static_cast<std::ptrdiff_t>(span.Length));
    data.insert(data.begin() + static_cast<std::ptrdiff_t>(span.Start), bytes.begin(), bytes.end());
    const auto delta = static_cast<std::ptrdiff_t>(bytes.size()) - static_cast<std::ptrdiff_t>(span.Length);
    if (delta != 0) MoveGroupsBehind(doc, span.Start, delta);
    doc.Extra1.ExtraPoiDataLength = static_cast<std::int32_t>(data.size());
    return true;
}

}  // namespace mirvane

#include "models/poi/extra_poi_icons.h"

#include "document/binary_writer.h"
#include "document/record_writer.h"
#include "document/encoding.h"
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

std::vector<SubIconSpan> WalkSubIcons(const Bytes& data, std::size_t groupStart, int& declared) {
    declared = groupStart < data.size() ? data[groupStart] : 0;
    std::vector<SubIconSpan> spans;
    std::size_t at = groupStart + kGroupHeaderLength;
    for (int i = 0; i < declared && at < data.size(); ++i) {
        const bool oneByte = LabelPrefixIsOneByte(data[at]);
        if (!oneByte && at + 1 >= data.size()) break;
        const auto length = static_cast<std::size_t>(LabelBlockLength(data[at], oneByte ? 0 : data[at + 1]));
        const std::size_t prefix = oneByte ? 1 : 2;
        if (length <= prefix) break;
        spans.push_back({at, length, prefix});
        at += length;
    }
    return spans;
}

std::vector<SubIconSpan> SubIconSpans(const Document& doc, int group) {
    const auto start = GroupStart(doc, group);
    if (!start) return {};
    int declared = 0;
    std::vector<SubIconSpan> spans = WalkSubIcons(doc.ExtraPoiDataBytes, *start, declared);
    if (!spans.empty() && spans.back().Start + spans.back().Length > doc.ExtraPoiDataBytes.size()) spans.pop_back();
    return spans;
}

SubIconBody ReadSubIconBody(const Bytes& data, const SubIconSpan& span) {
    const int offset = static_cast<int>(span.BodyStart());
    const int length = static_cast<int>(span.BodyLength());
    bool forcePalette = false;
    for (;;) {
        SubIconBody body;
        body.Record.Bitmaps[0].ForcePalette = forcePalette;
        FieldReader in(data, offset, [&body](int) { body.Damaged = true; });
        try {
            ReadPoiRecord(in, body.Record);
        } catch (const SuspectBitmapFailure&) {
            if (forcePalette) return {body.Record, true};
            forcePalette = true;
            continue;
        }
        if (!forcePalette && body.Record.Bitmaps[0].ColourCount == 0 && PoiRecordLength(body.Record) != length) {
            forcePalette = true;
            continue;
        }
        return body;
    }
}

std::optional<PoiRecord> ReadSubIcon(const Document& doc, int group, int subIcon) {
    const auto spans = SubIconSpans(doc, group);
    if (subIcon < 0 || subIcon >= static_cast<int>(spans.size())) return std::nullopt;
    SubIconBody body = ReadSubIconBody(doc.ExtraPoiDataBytes, spans[static_cast<std::size_t>(subIcon)]);
    if (body.Damaged) return std::nullopt;
    const ExtraPoiRecord& row = doc.ExtraPois[static_cast<std::size_t>(group)];
    body.Record.Type = row.Type;
    body.Record.SubType = row.SubType;
    return std::move(body.Record);
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

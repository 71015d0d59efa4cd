#include "compare/lint.h"

#include <map>

#include "base/codepage.h"
#include "compare/object_key.h"
#include "document/encoding.h"
#include "document/bitmap_codec.h"
#include "document/object_codec.h"
#include "labels/label_block.h"

namespace mirvane {

namespace {

// The writer files an object under type * 32 + subtype in a signed 16-bit key.
constexpr int kLargestIndexKey = 32767;
constexpr int kLargestSubType = 0x1F;

class Linter {
public:
    explicit Linter(const Document& doc) : doc_(doc) {}

    std::vector<std::string> Run() {
        CheckIdentity();
        CheckCodePage();
        for (ObjectKind kind : kObjectKinds)
            for (int row = 0; row < doc_.CountOf(kind); ++row) CheckObject({kind, row});
        CheckDuplicates();
        CheckDrawOrderRows();
        CheckReadLog();
        return std::move(out_);
    }

private:
    void Say(const std::string& subject, const std::string& what) { out_.push_back(subject + ": " + what); }

    void CheckIdentity() {
        if (!doc_.Identity.Fid || *doc_.Identity.Fid == 0)
            Say("FID", "missing or 0; give the map's family id in FID= of [_id]");
        if (!doc_.Identity.ProductCode || *doc_.Identity.ProductCode == 0)
            Say("product code", "missing or 0; give the map's product code in ProductCode= of [_id]");
    }

    void CheckCodePage() {
        if (!IsSupportedCodePage(doc_.Identity.CodePage))
            Say("code page " + std::to_string(doc_.Identity.CodePage),
                "unknown, labels read as 1252; choose a code page from 1250 to 1258 or 65001");
    }

    void CheckObject(ObjectRef ref) {
        const ObjectKey key = KeyOf(doc_, ref);
        const std::string name = ObjectName(key);
        ++seen_[key];
        if (key.SubType > kLargestSubType || key.Type * 32 + key.SubType > kLargestIndexKey)
            Say(name, "type or subtype too large to be saved; use a type up to 0x3ff and a subtype up to 0x1f");
        switch (ref.Kind) {
            case ObjectKind::Polygon: CheckPolygon(name, key, doc_.Polygons[ref.Row]); break;
            case ObjectKind::Polyline: CheckPolyline(name, doc_.Polylines[ref.Row]); break;
            case ObjectKind::Poi: CheckPoi(name, doc_.Pois[ref.Row]); break;
        }
    }

    void CheckPolygon(const std::string& name, const ObjectKey& key, const PolygonRecord& record) {
        bool drawn = false;
        for (const DrawOrderEntry& row : doc_.DrawOrder) drawn = drawn || DrawOrderRowCovers(row, key.Type, key.SubType);
        // The draw order cannot hold type 0: its entry reads as the step to the next level.
        if (key.Type == 0) Say(name, "type 0 cannot be placed in the draw order, so no map draws it; use another type");
        else if (!drawn) Say(name, "not in the draw order; add a row for it to [_drawOrder]");
        const DecodedPolygon polygon = DecodePolygon(record);
        CheckLayout(name, polygon.Layout, polygon.Status);
        CheckLabels(name, record.LabelBytes);
    }

    void CheckPolyline(const std::string& name, const PolylineRecord& record) {
        const DecodedPolyline line = DecodePolyline(record);
        CheckLayout(name, line.Layout, line.Status);
        CheckLabels(name, record.LabelBytes);
    }

    void CheckPoi(const std::string& name, const PoiRecord& record) {
        if (record.Width > kLargestPoiSide || record.Height > kLargestPoiSide)
            Say(name, std::to_string(record.Width) + "x" + std::to_string(record.Height) +
                          " pixels, over 64; scale the bitmap down to 64x64 at most");
        if (DecodePoi(record).Status() != DecodeStatus::Ok)
            Say(name, "bitmap cannot be drawn whole; edit its pixels or colours and save again");
        CheckLabels(name, record.LabelBytes);
    }

    void CheckLayout(const std::string& name, const ColourLayout& layout, DecodeStatus status) {
        const int bits = layout.Bits();
        if (bits == 2 || bits == 4)
            Say(name, "colour layout " + std::to_string(bits) +
                          " (transparent colour first), which other decoders do not know; swap its two colours "
                          "and invert its pattern");
        if (status != DecodeStatus::Ok)
            Say(name, "flags promise colours, widths or pattern rows the record does not hold; set its colours "
                      "again and save");
    }

    void CheckLabels(const std::string& name, const Bytes& block) {
        if (block.empty()) return;
        const auto texts = DecodeLabelBlock(block);
        if (!texts) {
            Say(name, "label block cannot be read; enter its labels again");
            return;
        }
        for (const LabelText& label : *texts) CheckLabelText(name, label);
    }

    void CheckLabelText(const std::string& name, const LabelText& label) {
        const int codePage = doc_.Identity.CodePage;
        const std::string subject = name + " label " + std::to_string(label.LanguageCode);
        if (codePage == kUtf8CodePage) {
            if (!IsValidUtf8(label.Text))
                Say(subject, "not valid UTF-8 in a code page 65001 file; enter the label again in UTF-8");
            return;
        }
        if (LooksLikeUtf8(label.Text)) {
            Say(subject, "\"" + label.Text + "\" holds UTF-8 bytes in a code page " + std::to_string(codePage) +
                             " file; convert the label to code page " + std::to_string(codePage));
            return;
        }
        if (HasUndefinedByte(label.Text, codePage))
            Say(subject, "holds bytes code page " + std::to_string(codePage) +
                             " does not define; replace those characters");
    }

    static bool LooksLikeUtf8(const std::string& text) {
        for (char c : text)
            if (static_cast<unsigned char>(c) >= 0x80) return IsValidUtf8(text);
        return false;
    }

    // Bytes a code page leaves undefined decode to the C1 controls U+0080..U+009F,
    // which no Windows code page maps a character to.
    static bool HasUndefinedByte(const std::string& text, int codePage) {
        const std::string decoded = DecodeCodePage(text, codePage);
        for (std::size_t i = 0; i + 1 < decoded.size(); ++i)
            if (static_cast<unsigned char>(decoded[i]) == 0xC2 && static_cast<unsigned char>(decoded[i + 1]) < 0xA0)
                return true;
        return false;
    }

    void CheckDuplicates() {
        for (const auto& [key, count] : seen_)
            if (count > 1)
                Say(ObjectName(key), std::to_string(count) + " objects share this type and subtype; the map draws "
                                                             "only one, remove or renumber the others");
    }

    void CheckDrawOrderRows() {
        for (const DrawOrderEntry& row : doc_.DrawOrder) {
            const std::string name = "draw order " + ObjectName({ObjectKind::Polygon, row.Type, row.SubType});
            bool used = false;
            for (const PolygonRecord& polygon : doc_.Polygons)
                used = used || DrawOrderRowCovers(row, HexValue(polygon.Type), HexValue(polygon.SubType));
            if (!used) Say(name, "no polygon of this type; remove the row or add the polygon");
            if (row.Type >= 0x100 && row.SubType > kLargestSubType)
                Say(name, "subtype above 0x1f cannot be saved; use a subtype up to 0x1f");
            // The file gives a type below 0x100 one row with no subtype mask.
            if (row.Type < 0x100 && row.SubType != 0)
                Say(name, "a type below 0x100 has no subtypes in the draw order; the file keeps the type alone, "
                          "give the row subtype 0");
        }
    }

    void CheckReadLog() {
        std::size_t start = 0;
        const std::string& log = doc_.ReadErrorLog;
        while (start < log.size()) {
            std::size_t end = log.find_first_of("\r\n", start);
            if (end == std::string::npos) end = log.size();
            if (end > start)
                Say("read", log.substr(start, end - start) + "; fix the object named, or save again to rewrite it");
            start = end + 1;
        }
        if (log.empty() && doc_.ReadErrorFlag) Say("read", "errors flagged; open the file and save it again");
    }

    const Document& doc_;
    std::map<ObjectKey, int> seen_;
    std::vector<std::string> out_;
};

}  // namespace

std::vector<std::string> LintDocument(const Document& doc) { return Linter(doc).Run(); }

}  // namespace mirvane

#include "compare/drawing_diff.h"

#include <map>
#include <optional>
#include <set>

#include "base/codepage.h"
#include "compare/object_key.h"
#include "document/bitmap_codec.h"
#include "document/object_codec.h"
#include "document/object_preview.h"
#include "labels/label_block.h"

namespace mirvane {

namespace {

// Objects by key; a repeated key gets its rank among equals, so that the
// second of two equal keys meets the second on the other side.
using KeyedObjects = std::map<std::pair<ObjectKey, int>, ObjectRef>;

KeyedObjects KeyObjects(const Document& doc) {
    KeyedObjects objects;
    std::map<ObjectKey, int> seen;
    for (ObjectKind kind : kObjectKinds)
        for (int row = 0; row < doc.CountOf(kind); ++row) {
            const ObjectKey key = KeyOf(doc, {kind, row});
            objects[{key, seen[key]++}] = {kind, row};
        }
    return objects;
}

class ObjectComparison {
public:
    ObjectComparison(const Document& a, const Document& b, ObjectRef ra, ObjectRef rb,
                     std::vector<std::string>& out)
        : a_(a), b_(b), ra_(ra), rb_(rb), name_(ObjectName(KeyOf(a, ra))), out_(out) {}

    void Run() {
        CompareStatus();
        const std::size_t said = out_.size();
        CompareColours();
        CompareWidths();
        // A polygon's or line's pixels follow from its colours and widths:
        // once those differ, the pixels would only say it again.
        if (out_.size() == said) ComparePictures();
        CompareLabels();
        CompareExtendedLabels();
    }

private:
    void Say(const std::string& what) { out_.push_back(name_ + ": " + what); }

    static std::string RoleText(const std::optional<std::uint32_t>& colour) {
        return colour ? ColourText(*colour) : "transparent";
    }

    static const char* StatusText(DecodeStatus status) {
        switch (status) {
            case DecodeStatus::Ok: return "drawable";
            case DecodeStatus::MissingColours: return "missing colours";
            case DecodeStatus::MissingPixels: return "missing pixels";
            case DecodeStatus::MissingWidths: return "missing widths";
            case DecodeStatus::UnknownColourMode: return "unknown colour mode";
        }
        return "";
    }

    DecodeStatus StatusOf(const Document& doc, ObjectRef ref) const {
        switch (ref.Kind) {
            case ObjectKind::Polygon: return DecodePolygon(doc.Polygons[ref.Row]).Status;
            case ObjectKind::Polyline: return DecodePolyline(doc.Polylines[ref.Row]).Status;
            case ObjectKind::Poi: break;
        }
        return DecodePoi(doc.Pois[ref.Row]).Status();
    }

    // A solid polygon draws its foregrounds alone.
    static ColourRoles DrawnRoles(const DecodedPolygon& polygon) {
        ColourRoles roles = polygon.Roles();
        if (!polygon.Pattern) roles.DayBackground = roles.NightBackground = std::nullopt;
        return roles;
    }

    std::optional<ColourRoles> RolesOf(const Document& doc, ObjectRef ref) const {
        switch (ref.Kind) {
            case ObjectKind::Polygon: return DrawnRoles(DecodePolygon(doc.Polygons[ref.Row]));
            case ObjectKind::Polyline: return DecodePolyline(doc.Polylines[ref.Row]).Roles();
            case ObjectKind::Poi: break;
        }
        return std::nullopt;  // a POI's colours are its pixels
    }

    void CompareStatus() {
        const DecodeStatus sa = StatusOf(a_, ra_), sb = StatusOf(b_, rb_);
        if (sa != sb) Say(std::string("record ") + StatusText(sa) + " -> " + StatusText(sb));
    }

    void CompareColours() {
        const auto ra = RolesOf(a_, ra_), rb = RolesOf(b_, rb_);
        if (!ra || !rb) return;
        CompareRole("day foreground", ra->DayForeground, rb->DayForeground);
        CompareRole("day background", ra->DayBackground, rb->DayBackground);
        CompareRole("night foreground", ra->NightForeground, rb->NightForeground);
        CompareRole("night background", ra->NightBackground, rb->NightBackground);
    }

    void CompareRole(const char* role, const std::optional<std::uint32_t>& a, const std::optional<std::uint32_t>& b) {
        if (a != b) Say(std::string(role) + " " + RoleText(a) + " -> " + RoleText(b));
    }

    void CompareWidths() {
        if (ra_.Kind != ObjectKind::Polyline) return;
        const DecodedPolyline la = DecodePolyline(a_.Polylines[ra_.Row]);
        const DecodedPolyline lb = DecodePolyline(b_.Polylines[rb_.Row]);
        CompareWidth("line width", la.LineWidth, lb.LineWidth);
        CompareWidth("total width", la.TotalWidth, lb.TotalWidth);
    }

    void CompareWidth(const char* what, const std::optional<std::uint8_t>& a, const std::optional<std::uint8_t>& b) {
        if (a == b) return;
        const auto text = [](const std::optional<std::uint8_t>& w) { return w ? std::to_string(*w) : "none"; };
        Say(std::string(what) + " " + text(a) + " -> " + text(b));
    }

    static std::string PixelText(std::int32_t pixel) {
        return pixel == kTransparentPixel ? "transparent" : ColourText(static_cast<std::uint32_t>(pixel));
    }

    void ComparePictures() {
        const PixelPicture pa = PictureOfObject(a_, ra_), pb = PictureOfObject(b_, rb_);
        if (pa.Width != pb.Width || pa.Height != pb.Height) {
            Say("size " + std::to_string(pa.Width) + "x" + std::to_string(pa.Height) + " -> " +
                std::to_string(pb.Width) + "x" + std::to_string(pb.Height));
            return;
        }
        ComparePixels("day", pa.Width, pa.Day, pb.Day);
        if (pa.Night.empty() != pb.Night.empty())
            Say(pa.Night.empty() ? "night picture added" : "night picture removed");
        else
            ComparePixels("night", pa.Width, pa.Night, pb.Night);
    }

    void ComparePixels(const char* which, int width, const std::vector<std::int32_t>& a,
                       const std::vector<std::int32_t>& b) {
        int count = 0;
        std::size_t first = 0;
        for (std::size_t i = 0; i < a.size() && i < b.size(); ++i)
            if (a[i] != b[i] && count++ == 0) first = i;
        if (count == 0) return;
        const int x = static_cast<int>(first) % width, y = static_cast<int>(first) / width;
        Say(std::string(which) + " pixels: " + std::to_string(count) + " differ, first at (" + std::to_string(x) +
            "," + std::to_string(y) + ") " + PixelText(a[first]) + " -> " + PixelText(b[first]));
    }

    // Language code -> text in UTF-8; no value for a block that cannot be read.
    static std::optional<std::map<int, std::string>> LabelsOf(const Document& doc, const Bytes& block) {
        std::map<int, std::string> labels;
        if (block.empty()) return labels;
        const auto texts = DecodeLabelBlock(block);
        if (!texts) return std::nullopt;
        for (const LabelText& label : *texts)
            labels.emplace(label.LanguageCode, DecodeCodePage(label.Text, doc.Identity.CodePage));
        return labels;
    }

    const Bytes& LabelBytesOf(const Document& doc, ObjectRef ref) const {
        switch (ref.Kind) {
            case ObjectKind::Polygon: return doc.Polygons[ref.Row].LabelBytes;
            case ObjectKind::Polyline: return doc.Polylines[ref.Row].LabelBytes;
            case ObjectKind::Poi: break;
        }
        return doc.Pois[ref.Row].LabelBytes;
    }

    const Bytes& ExtendedLabelBytesOf(const Document& doc, ObjectRef ref) const {
        switch (ref.Kind) {
            case ObjectKind::Polygon: return doc.Polygons[ref.Row].ExtendedLabelBytes;
            case ObjectKind::Polyline: return doc.Polylines[ref.Row].ExtendedLabelBytes;
            case ObjectKind::Poi: break;
        }
        return doc.Pois[ref.Row].ExtendedLabelBytes;
    }

    void CompareLabels() {
        const auto la = LabelsOf(a_, LabelBytesOf(a_, ra_)), lb = LabelsOf(b_, LabelBytesOf(b_, rb_));
        if (!la || !lb) {
            if (la.has_value() != lb.has_value()) Say(la ? "label block unreadable" : "label block readable again");
            return;
        }
        std::set<int> languages;
        for (const auto& [code, text] : *la) languages.insert(code);
        for (const auto& [code, text] : *lb) languages.insert(code);
        for (int code : languages) {
            const auto ta = la->find(code), tb = lb->find(code);
            const std::string label = "label " + std::to_string(code) + " ";
            if (ta == la->end()) Say(label + "added \"" + tb->second + "\"");
            else if (tb == lb->end()) Say(label + "removed \"" + ta->second + "\"");
            else if (ta->second != tb->second) Say(label + "\"" + ta->second + "\" -> \"" + tb->second + "\"");
        }
    }

    void CompareExtendedLabels() {
        const ExtendedLabelStyle sa = DecodeExtendedLabelBlock(ExtendedLabelBytesOf(a_, ra_)).value_or(ExtendedLabelStyle{});
        const ExtendedLabelStyle sb = DecodeExtendedLabelBlock(ExtendedLabelBytesOf(b_, rb_)).value_or(ExtendedLabelStyle{});
        if (sa.FontStyle != sb.FontStyle)
            Say("font " + FontStyleText(sa.FontStyle) + " -> " + FontStyleText(sb.FontStyle));
        if (sa.CustomColor != sb.CustomColor)
            Say("label colours " + CustomColorText(sa.CustomColor) + " -> " + CustomColorText(sb.CustomColor));
        // A colour the custom colour code does not use draws nothing.
        if ((sa.CustomColor & sb.CustomColor & 1) && sa.DayColour != sb.DayColour)
            Say("label day colour " + ColourText(sa.DayColour) + " -> " + ColourText(sb.DayColour));
        if ((sa.CustomColor & sb.CustomColor & 2) && sa.NightColour != sb.NightColour)
            Say("label night colour " + ColourText(sa.NightColour) + " -> " + ColourText(sb.NightColour));
    }

    const Document& a_;
    const Document& b_;
    ObjectRef ra_, rb_;
    std::string name_;
    std::vector<std::string>& out_;
};

std::string DrawOrderName(const DrawOrderEntry& row) {
    return "draw order " + ObjectName({ObjectKind::Polygon, row.Type, row.SubType});
}

// Rank by type and subtype: only the order of the levels draws, so levels
// left empty (a save drops them) do not count. Below type 0x100 the subtype
// is not stored.
std::map<std::pair<int, int>, std::set<int>> DrawOrderLevels(const Document& doc) {
    std::set<int> used;
    for (const DrawOrderEntry& row : doc.DrawOrder) used.insert(row.Level);
    std::map<int, int> rankOfLevel;
    for (int level : used) rankOfLevel.emplace(level, static_cast<int>(rankOfLevel.size()) + 1);
    std::map<std::pair<int, int>, std::set<int>> ranks;
    for (const DrawOrderEntry& row : doc.DrawOrder)
        ranks[{row.Type, row.Type < 0x100 ? 0 : row.SubType}].insert(rankOfLevel[row.Level]);
    return ranks;
}

std::string LevelsText(const std::set<int>& levels) {
    std::string text;
    for (int level : levels) text += (text.empty() ? "" : ",") + std::to_string(level);
    return text;
}

void CompareDrawOrders(const Document& a, const Document& b, std::vector<std::string>& out) {
    const auto la = DrawOrderLevels(a), lb = DrawOrderLevels(b);
    std::set<std::pair<int, int>> keys;
    for (const auto& [key, levels] : la) keys.insert(key);
    for (const auto& [key, levels] : lb) keys.insert(key);
    for (const auto& key : keys) {
        const auto ia = la.find(key), ib = lb.find(key);
        const std::string name = DrawOrderName({0, key.first, key.second});
        if (ia == la.end()) out.push_back(name + ": added at rank " + LevelsText(ib->second));
        else if (ib == lb.end()) out.push_back(name + ": removed from rank " + LevelsText(ia->second));
        else if (ia->second != ib->second)
            out.push_back(name + ": rank " + LevelsText(ia->second) + " -> " + LevelsText(ib->second));
    }
}

}  // namespace

std::vector<std::string> CompareDrawings(const Document& before, const Document& after) {
    std::vector<std::string> out;
    const KeyedObjects a = KeyObjects(before), b = KeyObjects(after);
    for (const auto& [key, ref] : a) {
        const auto match = b.find(key);
        if (match == b.end()) out.push_back(ObjectName(key.first) + ": removed");
        else ObjectComparison(before, after, ref, match->second, out).Run();
    }
    for (const auto& [key, ref] : b)
        if (!a.contains(key)) out.push_back(ObjectName(key.first) + ": added");
    CompareDrawOrders(before, after, out);
    return out;
}

}  // namespace mirvane

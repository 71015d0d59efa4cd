// One TYP document, shared by every view of the program.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "document/records.h"

namespace mirvane {

enum class DocumentState { None, New, Loaded };

// One object of the document: its kind and its row in that kind's list.
struct ObjectRef {
    ObjectKind Kind = ObjectKind::Polygon;
    int Row = 0;
    bool operator==(const ObjectRef&) const = default;
};

inline constexpr ObjectKind kObjectKinds[] = {ObjectKind::Polygon, ObjectKind::Polyline, ObjectKind::Poi};

// What the main window's identity fields hold. The writer takes its header
// values from here, so a document read from one file can be saved with
// another FID, code page or header size.
struct IdentityFields {
    std::string txtFID;
    std::string txtProductCode;
    int CodePageIndex = -1;   // cbbCodepage: CodePage - 1250, -1 when none is selected
    // A code page the combo cannot show (65001, say): kept so that a save
    // while nothing is selected writes it back instead of 1252.
    int UnlistedCodePage = 0;
    int HeaderSizeIndex = -1; // cbbHeadersize: 0..4 known sizes, 5 for an added item
    std::string HeaderSizeText;  // the combo's text, "120 octets : format inconnu" for an added item
};

struct Document {
    TypHeader Header;
    HeaderExtra1 Extra1;
    HeaderExtra2 Extra2;
    HeaderExtra3 Extra3;
    HeaderExtra4 Extra4;

    std::vector<PolygonRecord> Polygons;
    // Regular polylines first, then the ExtraPolylineCount ones of the extra index.
    std::vector<PolylineRecord> Polylines;
    std::vector<PoiRecord> Pois;
    std::vector<ExtraPoiRecord> ExtraPois;

    int PolylineCount = 0;
    int ExtraPolylineCount = 0;
    int ExtraPoiCount = 0;
    int LabelCount = 0;

    Bytes ExtraPoiDataBytes, ExtraPoiIndexBytes;
    Bytes LabelTextBytes, LabelTable1Bytes, LabelTable2Bytes;
    Bytes HeaderGapBytes;  // between header and first section; the TYP's comment text

    std::int32_t PoiDataBase = 0, PolygonDataBase = 0, PolylineDataBase = 0, DrawOrderBase = 0;

    std::string FilePath, FileName, FileFolder;
    std::string FileLengthText = "0";

    std::string ReadErrorLog;
    bool ReadErrorFlag = false;

    // The rows of ListDraworder are the store of the draw order:
    // "Type=0x10f,SubType=0x01,3" or "Type=0x003,1".
    std::vector<std::string> DrawOrderRows;

    IdentityFields Identity;
    DocumentState State = DocumentState::None;
    bool FromText = false;  // loaded from the text form rather than a binary file
    bool ModifiedFlag = false;
    bool TextAppliedFlag = false;

    int PolygonCount() const { return static_cast<int>(Polygons.size()); }
    int PoiCount() const { return static_cast<int>(Pois.size()); }
    int CountOf(ObjectKind kind) const {
        switch (kind) {
            case ObjectKind::Polygon: return PolygonCount();
            case ObjectKind::Polyline: return static_cast<int>(Polylines.size());
            case ObjectKind::Poi: break;
        }
        return PoiCount();
    }
    bool Holds(ObjectRef ref) const { return ref.Row >= 0 && ref.Row < CountOf(ref.Kind); }

    // FilePath, and its folder and name split at the last separator.
    void SetPath(const std::string& path) {
        FilePath = path;
        const std::size_t cut = path.find_last_of("/\\");
        FileFolder = cut == std::string::npos ? std::string() : path.substr(0, cut);
        FileName = cut == std::string::npos ? path : path.substr(cut + 1);
    }

    // Back to the empty state of a closed document.
    void Reset() { *this = Document{}; }
};

}  // namespace mirvane

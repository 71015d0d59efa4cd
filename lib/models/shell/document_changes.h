// What changed in the document, told to every view that watches it, so that
// each redraws only what it shows: the main window its lists, the icons view
// its icons, an editor window the object it holds.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "document/document.h"

namespace mirvane {

enum class Change : std::uint32_t {
    Polygons = 1u << 0,
    Polylines = 1u << 1,
    Pois = 1u << 2,
    DrawOrder = 1u << 3,
    Identity = 1u << 4,   // FID, product code, code page, header size
    File = 1u << 5,       // opened, closed, saved, renamed, the modified mark
    Selection = 1u << 6,  // the object the text pane and the preview show
    Settings = 1u << 7,   // recent files and other stored choices
};

class ChangeSet {
public:
    constexpr ChangeSet() = default;
    constexpr ChangeSet(Change change) : bits_(static_cast<std::uint32_t>(change)) {}
    static constexpr ChangeSet Everything() { return ChangeSet(~0u); }
    static ChangeSet Records(ObjectKind kind);

    constexpr bool Has(Change change) const { return (bits_ & static_cast<std::uint32_t>(change)) != 0; }
    constexpr bool HasRecords() const { return Has(Change::Polygons) || Has(Change::Polylines) || Has(Change::Pois); }
    constexpr bool Empty() const { return bits_ == 0; }
    constexpr ChangeSet operator|(ChangeSet other) const { return ChangeSet(bits_ | other.bits_); }
    ChangeSet& operator|=(ChangeSet other) {
        bits_ |= other.bits_;
        return *this;
    }
    constexpr bool operator==(const ChangeSet&) const = default;

private:
    constexpr explicit ChangeSet(std::uint32_t bits) : bits_(bits) {}
    std::uint32_t bits_ = 0;
};

constexpr ChangeSet operator|(Change a, Change b) { return ChangeSet(a) | ChangeSet(b); }

// The listeners of one document. A listener is removed with the id it was
// given; one removed while changes are told is not called again.
class DocumentChanges {
public:
    using Listener = std::function<void(ChangeSet)>;

    int Listen(Listener listener);
    void StopListening(int id);
    void Tell(ChangeSet changes);

private:
    std::vector<std::pair<int, Listener>> listeners_;
    int nextId_ = 1;
    int telling_ = 0;
};

}  // namespace mirvane

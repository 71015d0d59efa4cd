// The description file of a mapset installed in a folder: info_v2.xml
// (MapInstall and BaseCamp), else info.xml (older installations, and
// Info.xml in a macOS .gmap bundle). The TYP the map programs draw with is
// an entry of it; it is read and rewritten as plain text, so that every other
// byte of the file stays as the installer wrote it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace mirvane {

enum class InfoFormat {
    V2,  // info_v2.xml: <File id="TYP">path</File>
    V1,  // info.xml:    <TYP>path</TYP>
};

struct InfoFile {
    std::filesystem::path Path;
    InfoFormat Format = InfoFormat::V1;
};

// info_v2.xml of the folder, else its info.xml, the names found without regard to case.
std::optional<InfoFile> FindInfoFile(const std::filesystem::path& folder);

// The TYP entry's path, and the family's <ID>; empty when the text has none.
std::string InfoTypEntry(std::string_view text, InfoFormat format);
std::string InfoFamilyId(std::string_view text);

// The text without the line of the TYP entry; as it was when there is none.
std::string WithoutTypEntry(std::string_view text, InfoFormat format);

// The text with the TYP entry set to `path`: the existing entry changed, or a
// new line put after the entry it belongs behind. No value when the text
// has no such place (not a description the map programs would read).
std::optional<std::string> WithTypEntry(std::string_view text, InfoFormat format, std::string_view path);

}  // namespace mirvane

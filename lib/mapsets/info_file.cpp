#include "mapsets/info_file.h"

#include <utility>

#include "mapsets/program_paths.h"

namespace mirvane {

namespace {

struct EntryTags {
    std::string_view Open, Close;
};

EntryTags TypTags(InfoFormat format) {
    if (format == InfoFormat::V2) return {"<File id=\"TYP\">", "</File>"};
    return {"<TYP>", "</TYP>"};
}

// The text between `tags`; empty when either is missing.
std::string Between(std::string_view text, EntryTags tags) {
    const std::size_t open = text.find(tags.Open);
    if (open == std::string_view::npos) return {};
    const std::size_t start = open + tags.Open.size();
    const std::size_t close = text.find(tags.Close, start);
    if (close == std::string_view::npos) return {};
    return std::string(text.substr(start, close - start));
}

// The text's own line break: installers on Windows write CR LF.
std::string_view LineBreakOf(std::string_view text) {
    const std::size_t feed = text.find('\n');
    return feed != std::string_view::npos && feed > 0 && text[feed - 1] == '\r' ? "\r\n" : "\n";
}

std::string InsertedAfter(std::string_view text, std::size_t at, std::string_view inserted) {
    return std::string(text.substr(0, at)) + std::string(inserted) + std::string(text.substr(at));
}

// Where a new TYP entry goes: right behind the map's index entry, as the
// map programs' own descriptions have it. npos when there is no such entry.
std::size_t NewEntryPlace(std::string_view text, InfoFormat format) {
    std::string_view anchor;
    if (format == InfoFormat::V1) {
        for (std::string_view candidate : {"</MDR>", "</IDX>", "</ID>"}) {
            if (text.find(candidate) == std::string_view::npos) continue;
            anchor = candidate;
            break;
        }
    } else if (text.find("trf</File>") != std::string_view::npos) {
        // A description with a traffic entry takes the TYP only behind
        // "trf.trf</File>"; without that one it is refused, not guessed at.
        anchor = "trf.trf</File>";
    } else if (text.find("mdr</File>") != std::string_view::npos) {
        anchor = "mdr</File>";
    } else if (text.find("mdx</File>") != std::string_view::npos) {
        anchor = "mdx</File>";
    }
    const std::size_t at = anchor.empty() ? std::string_view::npos : text.find(anchor);
    return at == std::string_view::npos ? at : at + anchor.size();
}

}  // namespace

std::optional<InfoFile> FindInfoFile(const std::filesystem::path& folder) {
    for (const auto& [name, format] : {std::pair{"info_v2.xml", InfoFormat::V2}, std::pair{"info.xml", InfoFormat::V1}}) {
        const std::filesystem::path path = EntryIgnoringCase(folder, name);
        std::error_code error;
        if (std::filesystem::is_regular_file(path, error)) return InfoFile{path, format};
    }
    return std::nullopt;
}

std::string InfoTypEntry(std::string_view text, InfoFormat format) { return Between(text, TypTags(format)); }

std::string InfoFamilyId(std::string_view text) { return Between(text, {"<ID>", "</ID>"}); }

std::string WithoutTypEntry(std::string_view text, InfoFormat format) {
    const EntryTags tags = TypTags(format);
    const std::size_t entry = text.find(tags.Open);
    if (entry == std::string_view::npos) return std::string(text);
    // The line goes with its line feed; the one before it stays.
    const std::size_t lineStart = text.rfind('\n', entry);
    const std::size_t lineEnd = text.find('\n', entry);
    if (lineStart != std::string_view::npos && lineEnd != std::string_view::npos)
        return std::string(text.substr(0, lineStart)) + std::string(text.substr(lineEnd));
    // An entry on the first or the last line: the entry alone goes, not the
    // rest of a description written on one line.
    const std::size_t close = text.find(tags.Close, entry);
    const std::size_t end = close == std::string_view::npos ? text.size() : close + tags.Close.size();
    return std::string(text.substr(0, entry)) + std::string(text.substr(end));
}

std::optional<std::string> WithTypEntry(std::string_view text, InfoFormat format, std::string_view path) {
    const EntryTags tags = TypTags(format);
    const std::size_t open = text.find(tags.Open);
    if (open != std::string_view::npos) {
        const std::size_t start = open + tags.Open.size();
        const std::size_t close = text.find(tags.Close, start);
        if (close == std::string_view::npos) return std::nullopt;
        return std::string(text.substr(0, start)) + std::string(path) + std::string(text.substr(close));
    }
    const std::size_t place = NewEntryPlace(text, format);
    if (place == std::string_view::npos) return std::nullopt;
    const std::string lineBreak(LineBreakOf(text));
    const std::string entry = std::string(tags.Open) + std::string(path) + std::string(tags.Close);
    return InsertedAfter(text, place,
                         format == InfoFormat::V1 ? lineBreak + lineBreak + "  " + entry : lineBreak + "    " + entry);
}

}  // namespace mirvane

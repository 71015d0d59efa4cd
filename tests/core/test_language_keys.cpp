// Every language key the code looks up is in Langues/English.lng: the source
// is scanned for LookupText calls and the small wrappers around them, as
// scripts/lng_keys.py does (run it to list what is missing, with the French
// defaults).
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "corpus.h"
#include "editors/main_window_texts.h"
#include "labels/language_codes.h"
#include "lang/ini_file.h"

namespace {

namespace fs = std::filesystem;
const fs::path kSource = MIRVANE_SOURCE_DIR;

// An argument slot: a literal section, or the index of an argument.
struct Slot {
    std::optional<std::string> Literal;
    int Index = -1;
};
struct Lookup {
    Slot Section;
    int Default = 0, Key = 0;
};
using Lookups = std::map<std::string, Lookup>;

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

// The text of an argument made of string literals only (escapes are not
// needed for keys and sections).
std::optional<std::string> LiteralOf(const std::string& arg) {
    static const std::regex literals(R"re(^\s*(?:(?:u8)?"(?:[^"\\]|\\.)*"\s*)+$)re");
    if (!std::regex_match(arg, literals)) return std::nullopt;
    std::string value;
    static const std::regex piece(R"re("((?:[^"\\]|\\.)*)")re");
    for (std::sregex_iterator it(arg.begin(), arg.end(), piece), end; it != end; ++it) value += (*it)[1];
    return value;
}

// The arguments of the call whose '(' is at `open`.
std::vector<std::string> Arguments(const std::string& text, std::size_t open) {
    std::vector<std::string> args;
    int depth = 0;
    std::size_t begin = open + 1;
    for (std::size_t i = open; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"' || c == '\'') {
            for (++i; i < text.size() && text[i] != c; ++i)
                if (text[i] == '\\') ++i;
        } else if (c == '(' || c == '[' || c == '{') {
            ++depth;
        } else if (c == ')' || c == ']' || c == '}') {
            if (--depth == 0) {
                args.push_back(text.substr(begin, i - begin));
                return args;
            }
        } else if (c == ',' && depth == 1) {
            args.push_back(text.substr(begin, i - begin));
            begin = i + 1;
        }
    }
    return args;
}

std::string Trim(const std::string& text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

struct SourceFile {
    fs::path Path;
    std::string Text;
    Lookups Local;
};

// Functions whose body is `return Known(...)` passing the texts on.
void FindWrappers(std::vector<SourceFile>& files, Lookups& global) {
    static const std::regex definition(
        R"(\b(\w+)\s*\(([^(){};]*)\)\s*(?:const\s*)?\{\s*return\s+(?:QString::fromStdString\()?(\w+)\s*\()");
    static const std::regex word(R"(\w+)");
    for (int pass = 0; pass < 4; ++pass) {
        for (SourceFile& file : files) {
            Lookups& scope = file.Path.extension() == ".h" ? global : file.Local;
            for (std::sregex_iterator it(file.Text.begin(), file.Text.end(), definition), end; it != end; ++it) {
                const std::string name = (*it)[1], callee = (*it)[3];
                const Lookup* target = file.Local.count(callee) ? &file.Local.at(callee)
                                       : global.count(callee)   ? &global.at(callee)
                                                                : nullptr;
                if (!target || global.count(name) + file.Local.count(name)) continue;
                std::vector<std::string> params;
                std::stringstream list((*it)[2].str());
                for (std::string param; std::getline(list, param, ',');) {
                    std::string last;
                    for (std::sregex_iterator w(param.begin(), param.end(), word), e; w != e; ++w) last = (*w)[0];
                    params.push_back(last);
                }
                const auto args = Arguments(file.Text, static_cast<std::size_t>(it->position(0) + it->length(0) - 1));
                const auto paramOf = [&](int index) -> int {
                    if (index < 0 || index >= static_cast<int>(args.size())) return -1;
                    const auto found = std::find(params.begin(), params.end(), Trim(args[index]));
                    return found == params.end() ? -1 : static_cast<int>(found - params.begin());
                };
                Lookup lookup{target->Section, paramOf(target->Default), paramOf(target->Key)};
                if (!lookup.Section.Literal) {
                    const int index = lookup.Section.Index;
                    if (index >= static_cast<int>(args.size())) continue;
                    if (auto literal = LiteralOf(args[index])) lookup.Section = {literal, -1};
                    else lookup.Section = {std::nullopt, paramOf(index)};
                    if (!lookup.Section.Literal && lookup.Section.Index < 0) continue;
                }
                if (lookup.Default >= 0 && lookup.Key >= 0) scope[name] = lookup;
            }
        }
    }
}

using KeySet = std::set<std::pair<std::string, std::string>>;  // lower-case section, key

KeySet KeysInSource() {
    std::vector<SourceFile> files;
    for (const char* top : {"lib", "app", "cli"}) {
        for (const auto& entry : fs::recursive_directory_iterator(kSource / top)) {
            const auto ext = entry.path().extension();
            if (entry.is_regular_file() && (ext == ".cpp" || ext == ".h"))
                files.push_back({entry.path(), mirvane::testing::ReadFileText(entry.path()), {}});
        }
    }
    Lookups global{{"LookupText", {{std::nullopt, 0}, 1, 2}},
                   {"FormCaption", {{std::nullopt, 0}, 1, 2}},
                   {"LookupTextIn", {{std::nullopt, 1}, 2, 3}}};
    FindWrappers(files, global);

    KeySet keys;
    for (const SourceFile& file : files) {
        Lookups known = global;
        known.insert(file.Local.begin(), file.Local.end());
        for (const auto& [name, lookup] : known) {
            const std::regex call("\\b" + name + "\\s*\\(");
            for (std::sregex_iterator it(file.Text.begin(), file.Text.end(), call), end; it != end; ++it) {
                const auto args = Arguments(file.Text, static_cast<std::size_t>(it->position(0) + it->length(0) - 1));
                const int sectionIndex = lookup.Section.Literal ? -1 : lookup.Section.Index;
                if (static_cast<int>(args.size()) <= std::max({sectionIndex, lookup.Default, lookup.Key})) continue;
                const auto section = lookup.Section.Literal ? lookup.Section.Literal : LiteralOf(args[sectionIndex]);
                const auto key = LiteralOf(args[lookup.Key]);
                if (section && key) keys.insert({Lower(*section), Lower(*key)});
            }
        }
    }
    for (const auto& row : mirvane::kMainWindowTexts) keys.insert({"main", Lower(row.Key)});
    std::ifstream dynamic(kSource / "scripts" / "lng_dynamic_keys.txt");
    for (std::string line; std::getline(dynamic, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::stringstream fields(line);
        std::string section, key;
        std::getline(fields, section, '\t');
        std::getline(fields, key, '\t');
        keys.insert({Lower(section), Lower(key)});
    }
    return keys;
}

// The scan reads the whole tree: once for all tests.
const KeySet& SourceKeys() {
    static const KeySet keys = KeysInSource();
    return keys;
}

TEST(LanguageKeys, SourceScanFindsLookupsThroughTheirWrappers) {
    const KeySet& keys = SourceKeys();
    // A direct call, a per-file wrapper, the Qt helpers and the window's table.
    EXPECT_TRUE(keys.count({"labels", "txtpasdepoi"}));
    EXPECT_TRUE(keys.count({"compiler", "frmcompilercaption"}));
    EXPECT_TRUE(keys.count({"main", "mnufichier"}));
    EXPECT_TRUE(keys.count({"langues", "redemarrer"}));
    EXPECT_TRUE(keys.count({"main", "mnuchoixlangue"}));
    EXPECT_GT(keys.size(), 150u);
}

TEST(LanguageKeys, TheKeyTablesOfTheCodeAreListed) {
    const KeySet& keys = SourceKeys();
    for (int code = 0; code < mirvane::LanguageCodeCount(); ++code)
        EXPECT_TRUE(keys.count({"editer", "langue" + std::to_string(code)})) << code;
    for (int tip = 4; tip <= 8; ++tip) EXPECT_TRUE(keys.count({"main", "cbbheadersizetip" + std::to_string(tip)}));
}

TEST(LanguageKeys, EnglishHoldsEveryKeyTheCodeLooksUp) {
    const auto english = mirvane::LoadIniFile(kSource / "Langues" / "English.lng");
    ASSERT_TRUE(english) << "Langues/English.lng is missing";
    std::vector<std::string> missing;
    for (const auto& [section, key] : SourceKeys())
        if (!english->Find(section, key)) missing.push_back("[" + section + "] " + key);
    EXPECT_TRUE(missing.empty()) << missing.size() << " keys missing from Langues/English.lng, first: "
                                 << (missing.empty() ? "" : missing.front())
                                 << "\nRun scripts/lng_keys.py to list them with their French defaults.";
}

TEST(LanguageKeys, EnglishCaptionsAreNotEmpty) {
    const auto english = mirvane::LoadIniFile(kSource / "Langues" / "English.lng");
    ASSERT_TRUE(english);
    // These keys have an empty default: a missing or empty value blanks the caption.
    for (const auto& row : mirvane::kMainWindowTexts)
        EXPECT_FALSE(english->Value("Main", row.Key, "").empty()) << row.Key;
}

}  // namespace

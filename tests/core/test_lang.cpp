#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "language_folder_test.h"
#include "labels/language_codes.h"
#include "lang/ini_file.h"
#include "lang/lookup.h"

using namespace mirvane;
namespace fs = std::filesystem;

namespace {

void SetEnvironment(const char* name, const std::optional<std::string>& value) {
#ifdef _WIN32
    _putenv_s(name, value ? value->c_str() : "");
#else
    if (value)
        setenv(name, value->c_str(), 1);
    else
        unsetenv(name);
#endif
}

std::optional<std::string> Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

using LanguageFiles = LanguageFolderTest;

}  // namespace

TEST(IniFile, FindsSectionsAndKeysWithoutRegardToCase) {
    const IniFile ini("[Main]\r\ncmdOK=OK\r\n[Démarrage]\r\nActivite=Start\r\n");
    EXPECT_EQ(ini.Value("MAIN", "CMDok", "d"), "OK");
    EXPECT_EQ(ini.Value("démarrage", "activite", "d"), "Start");
    EXPECT_EQ(ini.Value("Main", "Activite", "fallback"), "fallback");  // key in the wrong section
    EXPECT_EQ(ini.Value("Nowhere", "cmdOK", "fallback"), "fallback");
    EXPECT_FALSE(ini.Find("Main", "missing").has_value());
    // The first match wins; only the first section of a name is searched.
    const IniFile twice("[A]\nk=first\nK=second\n[a]\nk=third\nother=x\n");
    EXPECT_EQ(twice.Find("A", "k"), "first");
    EXPECT_FALSE(twice.Find("A", "other").has_value());
}

TEST(IniFile, TrimsBlanksAndRemovesOnePairOfQuotes) {
    const IniFile ini(
        "before=section\n"
        "  [ S ]  \n"
        "  key  =  value with blanks  \n"
        "dq=\"  quoted  \"\n"
        "sq='single'\n"
        "mixed=\"not'\n"
        "inner=a \"b\" c\n"
        "twice=\"\"x\"\"\n"
        "empty=\n"
        "novalue\n"
        "eq=a=b\n"
        "; comment=no\n");
    const std::pair<const char*, std::optional<std::string>> keys[] = {
        {"key", "value with blanks"}, {"dq", "  quoted  "}, {"sq", "single"},   {"mixed", "\"not'"},
        {"inner", "a \"b\" c"},        {"twice", "\"x\""},    {"empty", ""},       {"novalue", std::nullopt},
        {"eq", "a=b"},                {"; comment", std::nullopt}};
    for (const auto& [key, value] : keys) EXPECT_EQ(ini.Find("S", key), value) << key;
    EXPECT_FALSE(ini.Find("", "before").has_value());
}

TEST(IniFile, CutsValuesAt254Characters) {
    std::string accents;
    for (int i = 0; i < 300; ++i) accents += "é";
    const IniFile ini("[S]\nlong=" + std::string(300, 'x') + "\naccents=" + accents + "\n");
    EXPECT_EQ(ini.Value("S", "long", ""), std::string(254, 'x'));
    const std::string cut = ini.Value("S", "accents", "");
    EXPECT_EQ(cut.size(), 254u * 2);  // whole characters, never half of one
    EXPECT_EQ(ini.Value("S", "missing", std::string(300, 'd')), std::string(254, 'd'));
}

TEST(IniFile, TextFilesAreUtf8OrWindows1252) {
    EXPECT_EQ(TextFileToUtf8("\xEF\xBB\xBF[S]"), "[S]");
    EXPECT_EQ(TextFileToUtf8("Fran\xC3\xA7" "ais"), "Français");
    EXPECT_EQ(TextFileToUtf8("Fran\xE7" "ais \x80"), "Français €");
    EXPECT_EQ(TextFileToUtf8(""), "");
}

TEST_F(LanguageFiles, LooksUpTheCurrentLanguageFile) {
    WriteLanguage("English", "[Palette]\r\ncmdAnnuler=Cancel\r\n");
    SetLanguageName("English");
    EXPECT_EQ(LookupText("Palette", "Annuler", "cmdAnnuler"), "Cancel");
    EXPECT_EQ(LookupText("Palette", "Autres couleurs", "cmdAutres"), "Autres couleurs");
    EXPECT_EQ(LookupText("Main", "Annuler", "cmdAnnuler"), "Annuler");

    SetLanguageName("Klingon");  // no file: defaults
    EXPECT_EQ(LookupText("Palette", "Annuler", "cmdAnnuler"), "Annuler");
}

TEST_F(LanguageFiles, AnsiLanguageFilesAreConverted) {
    WriteLanguage("Deutsch", "[Editer]\nLangue1=Franz\xF6sisch\n");
    SetLanguageName("Deutsch");
    EXPECT_EQ(LanguageCodeName(1), "Französisch");
    EXPECT_EQ(LanguageCodeName(2), "Allemand");  // missing key keeps the French name
}

TEST_F(LanguageFiles, AChangedFileIsReadAgain) {
    WriteLanguage("English", "[Main]\nk=one\n");
    SetLanguageName("English");
    EXPECT_EQ(LookupText("Main", "", "k"), "one");

    WriteLanguage("English", "[Main]\nk=three\n");  // other size
    EXPECT_EQ(LookupText("Main", "", "k"), "three");

    WriteLanguage("English", "[Main]\nk=seven\n");  // same size, other time
    const fs::path file = folder_ / "English.lng";
    fs::last_write_time(file, fs::last_write_time(file) + std::chrono::seconds(5));
    EXPECT_EQ(LookupText("Main", "", "k"), "seven");

    fs::remove(file);
    EXPECT_EQ(LookupText("Main", "gone", "k"), "gone");
}

TEST_F(LanguageFiles, ListsAndChecksLanguages) {
    WriteLanguage("Italiano", "");
    WriteLanguage("English", "");
    WriteLanguage("Deutsch", "");
    std::ofstream(folder_ / "notes.txt") << "x";
    fs::create_directory(folder_ / "Folder.lng");
    EXPECT_EQ(ListLanguages(), (std::vector<std::string>{"Deutsch", "English", "Italiano"}));
    EXPECT_TRUE(LanguageExists("English"));
    EXPECT_FALSE(LanguageExists("Folder"));
    EXPECT_FALSE(LanguageExists("Francais"));
    EXPECT_FALSE(LanguageExists(""));

    SetLanguageFolder((root_.Path() / "missing").string());
    EXPECT_TRUE(ListLanguages().empty());
    EXPECT_FALSE(LanguageExists("English"));
    SetLanguageFolder("");
    EXPECT_TRUE(ListLanguages().empty());
    EXPECT_EQ(LookupText("Main", "défaut", "k"), "défaut");
}

TEST_F(LanguageFiles, CandidateFoldersAndChoice) {
    const auto savedDataHome = Environment("XDG_DATA_HOME");
    const fs::path program = root_.Path() / "prefix" / "bin";
    const fs::path dataHome = root_.Path() / "data";
    SetEnvironment("XDG_DATA_HOME", dataHome.string());
    const fs::path beside = program / "Langues", shared = root_.Path() / "prefix" / "share" / "mirvane" / "Langues",
                   user = dataHome / "mirvane" / "Langues";
    const auto candidates = CandidateLanguageFolders(program.string());
    EXPECT_EQ(std::vector<fs::path>(candidates.begin(), candidates.end()), (std::vector<fs::path>{beside, shared, user}));
    // The first that exists, in that order; beside the program when none does.
    for (const fs::path& made : {fs::path(), user, shared, beside}) {
        if (!made.empty()) fs::create_directories(made);
        EXPECT_EQ(fs::path(ChooseLanguageFolder(program.string())), made.empty() ? beside : made);
    }

    SetEnvironment("XDG_DATA_HOME", "relative/ignored");
    const auto home = Environment("HOME");
    if (home) {
        EXPECT_EQ(fs::path(CandidateLanguageFolders(program.string()).back()),
                  fs::path(*home) / ".local" / "share" / "mirvane" / "Langues");
    }
    SetEnvironment("XDG_DATA_HOME", savedDataHome);
}

TEST(LanguageCodes, FrenchTableAndBounds) {
    ASSERT_EQ(LanguageCodeCount(), 35);
    EXPECT_EQ(LanguageCodeDefaultName(0), "Autre");
    EXPECT_EQ(LanguageCodeDefaultName(1), "Français");
    EXPECT_EQ(LanguageCodeDefaultName(34), "Bulgare");
    EXPECT_EQ(LanguageCodeDefaultName(35), "");
    EXPECT_EQ(LanguageCodeDefaultName(-1), "");
    EXPECT_EQ(LanguageCodeName(35), "");
}

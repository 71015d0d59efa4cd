#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "language_folder_test.h"
#include "lang/ini_file.h"
#include "lang/lookup.h"

using namespace mirvane;
namespace fs = std::filesystem;

namespace {

using LanguageFiles = LanguageFolderTest;

}  // namespace

TEST(IniFile, FindsSectionsAndKeysWithoutRegardToCase) {
    const IniFile ini("[Main]\r\ncmdOK=OK\r\n[Démarrage]\r\nActivite=Start\r\n");
    EXPECT_EQ(ini.Value("MAIN", "CMDok", "d"), "OK");
    EXPECT_EQ(ini.Value("démarrage", "activite", "d"), "Start");
    EXPECT_EQ(ini.Value("Main", "Activite", "fallback"), "fallback");  // key in the wrong section
}

TEST(IniFile, TextFilesAreUtf8OrWindows1252) {
    EXPECT_EQ(TextFileToUtf8("\xEF\xBB\xBF[S]"), "[S]");
    EXPECT_EQ(TextFileToUtf8("Fran\xC3\xA7" "ais"), "Français");
    EXPECT_EQ(TextFileToUtf8("Fran\xE7" "ais \x80"), "Français €");
}

TEST_F(LanguageFiles, LooksUpTheCurrentLanguageFile) {
    WriteLanguage("English", "[Palette]\r\ncmdAnnuler=Cancel\r\n");
    SetLanguageName("English");
    EXPECT_EQ(LookupText("Palette", "Annuler", "cmdAnnuler"), "Cancel");
    EXPECT_EQ(LookupText("Main", "Annuler", "cmdAnnuler"), "Annuler");

    SetLanguageName("Klingon");  // no file: defaults
    EXPECT_EQ(LookupText("Palette", "Annuler", "cmdAnnuler"), "Annuler");
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

    SetLanguageFolder((root_.Path() / "missing").string());
    EXPECT_TRUE(ListLanguages().empty());
    EXPECT_EQ(LookupText("Main", "défaut", "k"), "défaut");
}

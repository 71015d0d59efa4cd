// The English language file against the code: that every key the code looks
// up is there is checked by scripts/lng_keys.py (a ctest of its own); here,
// that no main-window caption, whose default is empty, is left blank.
#include <gtest/gtest.h>

#include <filesystem>

#include "models/shell/main_window_texts.h"
#include "lang/ini_file.h"

namespace {

const std::filesystem::path kSource = MIRVANE_SOURCE_DIR;

TEST(LanguageKeys, EnglishCaptionsAreNotEmpty) {
    const auto english = mirvane::LoadIniFile(kSource / "Langues" / "English.lng");
    ASSERT_TRUE(english) << "Langues/English.lng is missing";
    for (const auto& row : mirvane::kMainWindowTexts)
        EXPECT_FALSE(english->Value("Main", row.Key, "").empty()) << row.Key;
}

}  // namespace

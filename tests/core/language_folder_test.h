// A language folder of its own per test; the lookup state is put back after.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "lang/lookup.h"
#include "temp_folder.h"

class LanguageFolderTest : public ::testing::Test {
protected:
    void SetUp() override {
        savedFolder_ = mirvane::LanguageFolder();
        savedName_ = mirvane::LanguageName();
        folder_ = root_.Path() / "Langues";
        std::filesystem::create_directories(folder_);
        mirvane::SetLanguageFolder(folder_.string());
    }
    void TearDown() override {
        mirvane::SetLanguageFolder(savedFolder_);
        mirvane::SetLanguageName(savedName_);
    }
    void WriteLanguage(const std::string& name, const std::string& bytes) {
        std::ofstream(folder_ / (name + ".lng"), std::ios::binary) << bytes;
    }

    mirvane::testing::TempFolder root_;
    std::filesystem::path folder_;
    std::string savedFolder_, savedName_;
};

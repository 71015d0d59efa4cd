#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "models/textpane/compiler_model.h"
#include "scripted_prompts.h"
#include "temp_folder.h"

using namespace mirvane;
namespace fs = std::filesystem;

TEST(CompilerModel, CommandIsToolTypInputBlankOutput) {
    const auto command = BuildCompilerCommand("/opt/cgpsmapper", "/m/a.txt", "/m/a.typ");
    ASSERT_TRUE(command);
    EXPECT_EQ(command->Program, "/opt/cgpsmapper");
    EXPECT_EQ(command->Arguments, (std::vector<std::string>{"typ", "/m/a.txt", "/m/a.typ"}));
    EXPECT_EQ(command->CommandLine, "/opt/cgpsmapper typ /m/a.txt /m/a.typ");
    EXPECT_FALSE(BuildCompilerCommand("", "a.txt", "a.typ"));
}

TEST(CompilerModel, TypFieldFollowsATextFieldOfMoreThanThreeCharacters) {
    ScriptedPrompts prompts;
    CompilerModel form(prompts);
    form.SetTypPath("kept");
    form.SetTextPath("txt");
    EXPECT_EQ(form.TypPath(), "kept");
    form.SetTextPath("a.txt");
    EXPECT_EQ(form.TypPath(), "a.typ");
}

TEST(CompilerModel, SettingIsReadUnderCheminAndTheUserIsToldWhenMissing) {
    EXPECT_EQ(CompilerPathReadKey().Section, "cGPSmapper");
    EXPECT_EQ(CompilerPathReadKey().Key, "Chemin");
    EXPECT_EQ(CompilerPathWriteKey().Key, "Chemin");

    ScriptedPrompts prompts;
    CompilerModel stored(prompts);
    stored.LoadToolPath(std::string("/usr/bin/cgpsmapper"));
    EXPECT_EQ(stored.ToolPath(), "/usr/bin/cgpsmapper");
    EXPECT_TRUE(prompts.Log.empty());

    CompilerModel missing(prompts);
    missing.LoadToolPath(std::nullopt);
    EXPECT_EQ(missing.ToolPath(), DefaultCompilerPath());
    ASSERT_EQ(prompts.Log.size(), 1u);
    EXPECT_EQ(prompts.Log[0].Title, "Emplacement de cGPSmapper");
    EXPECT_EQ(prompts.Log[0].Text, "Rechercher le chemin du fichier cGPSmapper.exe");
}

TEST(CompilerModel, BrowsingForTheToolGivesTheSettingToStore) {
    ScriptedPrompts prompts;
    prompts.Paths = {std::nullopt, std::string("/tools/cgpsmapper"), std::string("/m/b.txt")};
    CompilerModel form(prompts);
    EXPECT_FALSE(form.BrowseForTool());
    const auto write = form.BrowseForTool();
    ASSERT_TRUE(write);
    EXPECT_EQ(write->Where.Key, "Chemin");
    EXPECT_EQ(write->Value, "/tools/cgpsmapper");
    EXPECT_EQ(prompts.Log[0].Title, "Emplacement de CGPSmapper");
    EXPECT_EQ(prompts.Log[0].Text, "Fichiers exécutables (*.exe)");
    form.BrowseForText();
    EXPECT_EQ(form.TypPath(), "/m/b.typ");
}

TEST(CompilerModel, RunEmptiesTheTargetFirstEvenWithNoToolToStart) {
    const mirvane::testing::TempFolder folder;
    const std::string target = folder.File("target.typ");
    { std::ofstream(target) << "old content"; }
    ScriptedPrompts prompts;
    CompilerModel form(prompts);
    form.SetToolPath("");
    form.SetTextPath("a.txt");
    form.SetTypPath(target);
    EXPECT_FALSE(form.Compile());
    EXPECT_EQ(fs::file_size(target), 0u);

    { std::ofstream(target) << "old content"; }
    form.SetToolPath("/tools/cgpsmapper");
    const auto command = form.Compile();
    ASSERT_TRUE(command);
    EXPECT_EQ(command->Arguments.back(), target);
    EXPECT_EQ(fs::file_size(target), 0u);
}

TEST(CompilerModel, BadTargetPathWarnsAndStartsNothing) {
    const mirvane::testing::TempFolder folder;
    ScriptedPrompts prompts;
    CompilerModel form(prompts);
    form.SetToolPath("/tools/cgpsmapper");
    form.SetTypPath(folder.File("no_such_folder/x.typ"));
    EXPECT_FALSE(form.Compile());
    ASSERT_EQ(prompts.Log.size(), 1u);
    EXPECT_EQ(prompts.Log[0].Kind, "warn");
    EXPECT_EQ(prompts.Log[0].Title, "Compiler un fichier txt avec cGPSmapper");
}

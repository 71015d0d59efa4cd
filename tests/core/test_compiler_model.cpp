#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "models/textpane/compiler_model.h"
#include "scripted_prompts.h"
#include "temp_folder.h"

using namespace mirvane;
namespace fs = std::filesystem;

namespace {

struct CompilerForm : ::testing::Test {
    ScriptedPrompts prompts;
    CompilerModel form{prompts};
    const mirvane::testing::TempFolder folder;
};

}  // namespace

TEST(CompilerModel, CommandIsToolTypInputBlankOutput) {
    const auto command = BuildCompilerCommand("/opt/cgpsmapper", "/m/a.txt", "/m/a.typ");
    ASSERT_TRUE(command);
    EXPECT_EQ(command->Arguments, (std::vector<std::string>{"typ", "/m/a.txt", "/m/a.typ"}));
    EXPECT_FALSE(BuildCompilerCommand("", "a.txt", "a.typ"));
}

TEST_F(CompilerForm, TheToolsPathIsReadUnderCheminAndTheUserIsToldWhenMissing) {
    EXPECT_EQ(CompilerPathReadKey().Section + "/" + CompilerPathReadKey().Key, "cGPSmapper/Chemin");
    EXPECT_EQ(CompilerPathWriteKey().Key, "Chemin");
    form.LoadToolPath(std::nullopt);
    EXPECT_EQ(form.ToolPath(), DefaultCompilerPath());
    EXPECT_EQ(prompts.Log.size(), 1u);
}

TEST_F(CompilerForm, BrowsingGivesTheToolsSettingAndTheTypFollowsATextOfMoreThanThreeCharacters) {
    prompts.Paths = {std::string("/tools/cgpsmapper"), std::string("/m/b.txt")};
    const auto write = form.BrowseForTool();
    ASSERT_TRUE(write);
    EXPECT_EQ(write->Value, "/tools/cgpsmapper");
    form.BrowseForText();
    EXPECT_EQ(form.TypPath(), "/m/b.typ");

    form.SetTypPath("kept");
    form.SetTextPath("txt");
    EXPECT_EQ(form.TypPath(), "kept");
}

TEST_F(CompilerForm, RunEmptiesTheTargetFirstEvenWithNoToolToStartAndABadTargetStartsNothing) {
    const std::string target = folder.File("target.typ");
    form.SetTextPath("a.txt");
    form.SetTypPath(target);
    for (const char* tool : {"", "/tools/cgpsmapper"}) {
        SCOPED_TRACE(tool);
        std::ofstream(target) << "old content";
        form.SetToolPath(tool);
        const auto command = form.Compile();
        EXPECT_EQ(fs::file_size(target), 0u);
        EXPECT_EQ(command.has_value(), *tool != '\0');
    }
    // A target that cannot be written warns and starts nothing.
    form.SetTypPath(folder.File("no_such_folder/x.typ"));
    EXPECT_FALSE(form.Compile());
    EXPECT_EQ(prompts.Texts("warn").size(), 1u);
}

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "models/textpane/compiler_route.h"
#include "scripted_prompts.h"

using namespace mirvane;
namespace fs = std::filesystem;

TEST(CompilerRoute, CommandIsToolTypInputBlankOutput) {
    const auto command = BuildCompilerCommand("/opt/cgpsmapper", "/m/a.txt", "/m/a.typ");
    ASSERT_TRUE(command);
    EXPECT_EQ(command->Program, "/opt/cgpsmapper");
    EXPECT_EQ(command->Arguments, (std::vector<std::string>{"typ", "/m/a.txt", "/m/a.typ"}));
    EXPECT_EQ(command->CommandLine, "/opt/cgpsmapper typ /m/a.txt /m/a.typ");
    EXPECT_FALSE(BuildCompilerCommand("", "a.txt", "a.typ"));
}

TEST(CompilerRoute, TypFieldFollowsATextFieldOfMoreThanThreeCharacters) {
    ScriptedPrompts prompts;
    CompilerModel form(prompts);
    form.txtFichierTyp = "kept";
    form.txtFichiertxt = "txt";
    form.txtFichiertxt_Change();
    EXPECT_EQ(form.txtFichierTyp, "kept");
    form.txtFichiertxt = "a.txt";
    form.txtFichiertxt_Change();
    EXPECT_EQ(form.txtFichierTyp, "a.typ");
}

TEST(CompilerRoute, SettingIsReadUnderCheminAndTheUserIsToldWhenMissing) {
    EXPECT_EQ(CompilerPathReadKey().Section, "cGPSmapper");
    EXPECT_EQ(CompilerPathReadKey().Key, "Chemin");
    EXPECT_EQ(CompilerPathWriteKey().Key, "Chemin");

    ScriptedPrompts prompts;
    CompilerModel stored(prompts);
    stored.Form_Load(std::string("/usr/bin/cgpsmapper"));
    EXPECT_EQ(stored.txtChemincGPSmapper, "/usr/bin/cgpsmapper");
    EXPECT_TRUE(prompts.Log.empty());

    CompilerModel missing(prompts);
    missing.Form_Load(std::nullopt);
    EXPECT_EQ(missing.txtChemincGPSmapper, DefaultCompilerPath());
    ASSERT_EQ(prompts.Log.size(), 1u);
    EXPECT_EQ(prompts.Log[0].Title, "Emplacement de cGPSmapper");
    EXPECT_EQ(prompts.Log[0].Text, "Rechercher le chemin du fichier cGPSmapper.exe");
}

TEST(CompilerRoute, BrowsingForTheToolGivesTheSettingToStore) {
    ScriptedPrompts prompts;
    prompts.Paths = {std::nullopt, std::string("/tools/cgpsmapper"), std::string("/m/b.txt")};
    CompilerModel form(prompts);
    EXPECT_FALSE(form.cmdChemincGPSmapper_Click());
    const auto write = form.cmdChemincGPSmapper_Click();
    ASSERT_TRUE(write);
    EXPECT_EQ(write->Where.Key, "Chemin");
    EXPECT_EQ(write->Value, "/tools/cgpsmapper");
    EXPECT_EQ(prompts.Log[0].Text, "Fichiers exécutables (*.exe)");
    form.cmdFichiertxt_Click();
    EXPECT_EQ(form.txtFichierTyp, "/m/b.typ");
}

TEST(CompilerRoute, RunEmptiesTheTargetFirstEvenWithNoToolToStart) {
    const fs::path target = fs::temp_directory_path() / "mirvane_compiler_target.typ";
    { std::ofstream(target) << "old content"; }
    ScriptedPrompts prompts;
    CompilerModel form(prompts);
    form.txtChemincGPSmapper = "";
    form.txtFichiertxt = "a.txt";
    form.txtFichierTyp = target.string();
    EXPECT_FALSE(form.Command1_Click());
    EXPECT_EQ(fs::file_size(target), 0u);

    { std::ofstream(target) << "old content"; }
    form.txtChemincGPSmapper = "/tools/cgpsmapper";
    const auto command = form.Command1_Click();
    ASSERT_TRUE(command);
    EXPECT_EQ(command->Arguments.back(), target.string());
    EXPECT_EQ(fs::file_size(target), 0u);
    fs::remove(target);
}

TEST(CompilerRoute, BadTargetPathWarnsAndStartsNothing) {
    ScriptedPrompts prompts;
    CompilerModel form(prompts);
    form.txtChemincGPSmapper = "/tools/cgpsmapper";
    form.txtFichierTyp = (fs::temp_directory_path() / "no_such_dir_mirvane" / "x.typ").string();
    EXPECT_FALSE(form.Command1_Click());
    ASSERT_EQ(prompts.Log.size(), 1u);
    EXPECT_EQ(prompts.Log[0].Kind, "warn");
}

TEST(ErrorWindow, TextHasPathBannerAndLog) {
    const auto window = MakeErrorWindow("/m/a.typ", "\r\nLigne 3 : \"x\"");
    EXPECT_EQ(window.Text, "Erreurs rencontrées dans le fichier  : /m/a.typ\r\n" + std::string(150, '*') +
                               "\r\n\r\n\r\nLigne 3 : \"x\"");
    EXPECT_EQ(window.cmdCopy_Caption, "Copier dans le presse-papier");
}

TEST(ColourIdentifier, ReadsTypeAndSubTypeFromTheIdentificationColour) {
    // Red 0x?1, green 0x0f, blue 0x1a: type 0x10f, subtype 0x1a.
    const auto identity = IdentifyColour(0x1A0F71);
    EXPECT_EQ(identity.Label1, "#710F1A");
    EXPECT_EQ(identity.Type, "0x10F");
    EXPECT_EQ(identity.SubType, "0x1A");
}

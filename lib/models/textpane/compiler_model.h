// frmCompiler: hands a text file to the external compiler (cGPSmapper or a
// program of the same command line), which makes the TYP. The program is
// started by the desktop program, without waiting for its end; its messages
// are not read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "models/shell/user_prompts.h"

namespace mirvane {

// A key of the settings store (application "Mirvane").
struct SettingKey {
    std::string Section;
    std::string Key;
};

// Where the tool's path is read: section "cGPSmapper", key "Chemin".
SettingKey CompilerPathReadKey();
// Where the browse button stores it: the key is the translated text of
// "Chemin". Existing settings keep the path under "Chemin" and existing
// language files translate that key, so both stay as they are, even though a
// language that translates it writes where nothing reads.
SettingKey CompilerPathWriteKey();
// The tool's path when nothing is stored.
std::string DefaultCompilerPath();

struct CompilerCommand {
    std::string Program;
    std::vector<std::string> Arguments;  // "typ", the text file, the TYP file
    std::string CommandLine;             // the same as one line, for a shell
};

// The tool, " typ ", the text file, a blank, the TYP file. Nothing when the
// tool's path is empty.
std::optional<CompilerCommand> BuildCompilerCommand(const std::string& tool, const std::string& textFile,
                                                    const std::string& typFile);

// The TYP field follows the text field: with more than 3 characters, its last
// three become "typ". Nothing otherwise.
std::optional<std::string> TypPathFor(const std::string& textPath);

// Texts the window shares with its prompts: the labels of the three fields
// are also the titles of their browse dialogs, and the window's title heads
// the warning of a TYP file that cannot be made.
std::string CompilerWindowTitle();
std::string ToolFieldCaption();  // lblcGPSmapperPath
std::string TextFieldCaption();  // lblTxtPath
std::string TypFieldCaption();   // lblTypPath

class CompilerModel {
public:
    explicit CompilerModel(UserPrompts& prompts);

    const std::string& ToolPath() const { return toolPath_; }  // txtChemincGPSmapper
    const std::string& TextPath() const { return textPath_; }  // txtFichiertxt
    const std::string& TypPath() const { return typPath_; }    // txtFichierTyp
    void SetToolPath(std::string path) { toolPath_ = std::move(path); }
    // The TYP path follows (TypPathFor).
    void SetTextPath(std::string path);  // txtFichiertxt_Change
    void SetTypPath(std::string path) { typPath_ = std::move(path); }

    // With the stored path (read under CompilerPathReadKey) the tool's field
    // takes it; without, the field keeps the default and the user is told to
    // find the tool.
    void LoadToolPath(const std::optional<std::string>& storedPath);  // Form_Load

    // The browse buttons. The tool's button returns the setting to store at
    // once when a path was chosen.
    struct SettingWrite {
        SettingKey Where;
        std::string Value;
    };
    std::optional<SettingWrite> BrowseForTool();  // cmdChemincGPSmapper
    void BrowseForText();                         // cmdFichiertxt
    void BrowseForTyp();                          // cmdFichierTyp

    // Creates or empties the TYP file, then gives the command for the app to
    // start. Nothing is started when the TYP file cannot be made (after a
    // critical message) or when the tool's path is empty.
    std::optional<CompilerCommand> Compile();  // Command1

private:
    UserPrompts& prompts_;
    std::string toolPath_;
    std::string textPath_;
    std::string typPath_;
};

// Creates the file or empties it, through the one save path, so that a bad
// target fails before the compiler runs; false with the reason when it cannot.
bool TruncateFile(const std::string& path, std::string& reason);

}  // namespace mirvane

// frmCompiler: hands a text file to the external compiler (cGPSmapper or a
// program of the same command line), which makes the TYP. The program is
// started by the desktop program, without waiting for its end; its messages
// are not read.
#pragma once

#include <cstdint>
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
// "Chemin", so a language that translates it writes where nothing reads.
// The program has always done so.
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

class CompilerModel {
public:
    explicit CompilerModel(UserPrompts& prompts);

    std::string Caption;
    std::string lblcGPSmapperPath_Caption;
    std::string lblTxtPath_Caption;
    std::string lblTypPath_Caption;
    std::string Command1_Caption;
    std::string cmdAnnuler_Caption;
    std::string txtChemincGPSmapper;
    std::string txtFichiertxt;
    std::string txtFichierTyp;
    bool Visible = true;

    // With the stored path (read under CompilerPathReadKey) the field takes
    // it; without, the field keeps the default and the user is told to find
    // the tool.
    void Form_Load(const std::optional<std::string>& storedPath);
    // Call after every change of txtFichiertxt.
    void txtFichiertxt_Change();
    // Browse buttons. The tool's button returns the setting to store at once
    // when a path was chosen.
    struct SettingWrite {
        SettingKey Where;
        std::string Value;
    };
    std::optional<SettingWrite> cmdChemincGPSmapper_Click();
    void cmdFichiertxt_Click();
    void cmdFichierTyp_Click();
    // Creates or empties the TYP file, then gives the command for the app to
    // start. Nothing is started when the TYP file cannot be made (after a
    // critical message) or when the tool's path is empty.
    std::optional<CompilerCommand> Command1_Click();
    void cmdAnnuler_Click() { Visible = false; }

private:
    UserPrompts& prompts_;
};

// Creates the file or empties it, through the one save path, so that a bad
// target fails before the compiler runs; false with the reason when it cannot.
bool TruncateFile(const std::string& path, std::string& reason);

// frmErreur.
struct ErrorWindowModel {
    std::string Caption;
    std::string Text;
    std::string cmdCopy_Caption;
    std::string cmdFermer_Caption;
};

// The error list: "Erreurs rencontrées dans le fichier", "  : ", the path,
// a line end, 150 '*', two line ends and the log.
std::string ErrorWindowText(const std::string& filePath, const std::string& readErrorLog);
ErrorWindowModel MakeErrorWindow(const std::string& filePath, const std::string& readErrorLog);

// frmColorIdentifier: the texts for the colour under the pointer, a colour
// 0x00BBGGRR. The identification TYP puts the type in the last red digit and
// the green byte, the subtype in the blue byte.
struct ColourIdentity {
    std::string Label1;   // "#RRGGBB"
    std::string Type;     // "0x" + the three digits from the 3rd of Label1
    std::string SubType;  // "0x" + the two digits from the 6th
};
ColourIdentity IdentifyColour(std::uint32_t colour);

}  // namespace mirvane

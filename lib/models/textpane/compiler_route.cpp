#include "models/textpane/compiler_route.h"

#include <cstdio>
#include <filesystem>

#include "base/file_io.h"
#include "document/file_messages.h"
#include "document/records.h"
#include "lang/lookup.h"

namespace mirvane {

namespace {

std::string CompilerText(std::string_view fallback, std::string_view key) {
    return LookupText("Compiler", fallback, key);
}

// Filters in the file dialog's form "Name (*.ext)".
std::string Filter(std::string_view fallback, std::string_view key, std::string_view pattern) {
    return CompilerText(fallback, key) + " (" + std::string(pattern) + ")";
}

}  // namespace

SettingKey CompilerPathReadKey() { return {"cGPSmapper", "Chemin"}; }

SettingKey CompilerPathWriteKey() { return {"cGPSmapper", CompilerText("Chemin", "Path")}; }

std::string DefaultCompilerPath() {
#ifdef _WIN32
    return "C:\\Program Files\\cGPSmapper\\cGPSmapper.exe";
#else
    return "cgpsmapper";
#endif
}

std::optional<CompilerCommand> BuildCompilerCommand(const std::string& tool, const std::string& textFile,
                                                    const std::string& typFile) {
    if (tool.empty()) return std::nullopt;
    CompilerCommand command;
    command.Program = tool;
    command.Arguments = {"typ", textFile, typFile};
    command.CommandLine = tool + " typ " + textFile + " " + typFile;
    return command;
}

std::optional<std::string> TypPathFor(const std::string& textPath) {
    if (textPath.size() <= 3) return std::nullopt;
    return textPath.substr(0, textPath.size() - 3) + "typ";
}

bool TruncateFile(const std::string& path, std::string& reason) {
    const WriteResult written = WriteFileAtomically(PathFromUtf8(path), std::string_view());
    if (written.Ok()) return true;
    reason = WriteFailureText(written.Status, written.Reason);
    if (reason.empty()) reason = "error";
    return false;
}

CompilerModel::CompilerModel(UserPrompts& prompts)
    : Caption(CompilerText("Compiler un fichier txt avec cGPSmapper", "frmCompilerCaption")),
      lblcGPSmapperPath_Caption(CompilerText("Emplacement de CGPSmapper", "cGPSmapperPath")),
      lblTxtPath_Caption(CompilerText("Emplacement du fichier txt à compiler", "txtPath")),
      lblTypPath_Caption(CompilerText("Emplacement du fichier typ à créér", "typPath")),
      Command1_Caption(CompilerText("Compiler", "Command1")),
      cmdAnnuler_Caption(CompilerText("Annuler", "cmdAnnuler")),
      txtChemincGPSmapper(DefaultCompilerPath()),
      prompts_(prompts) {}

void CompilerModel::Form_Load(const std::optional<std::string>& storedPath) {
    if (storedPath) {
        txtChemincGPSmapper = *storedPath;
        return;
    }
    prompts_.Inform(CompilerText("Emplacement de cGPSmapper", "msg2"),
                    CompilerText("Rechercher le chemin du fichier cGPSmapper.exe", "msg1"));
}

void CompilerModel::txtFichiertxt_Change() {
    if (auto typPath = TypPathFor(txtFichiertxt)) txtFichierTyp = *typPath;
}

std::optional<CompilerModel::SettingWrite> CompilerModel::cmdChemincGPSmapper_Click() {
    const auto path = prompts_.ChooseOpenPath(lblcGPSmapperPath_Caption,
                                              Filter("Fichiers exécutables", "filter3", "*.exe"));
    if (!path) return std::nullopt;
    txtChemincGPSmapper = *path;
    return SettingWrite{CompilerPathWriteKey(), *path};
}

void CompilerModel::cmdFichiertxt_Click() {
    const auto path = prompts_.ChooseOpenPath(lblTxtPath_Caption, Filter("Fichiers texte", "filter1", "*.txt"));
    if (!path) return;
    txtFichiertxt = *path;
    txtFichiertxt_Change();
}

void CompilerModel::cmdFichierTyp_Click() {
    const auto path = prompts_.ChooseSavePath(lblTypPath_Caption, txtFichierTyp,
                                              Filter("Fichiers typ", "filter2", "*.typ"));
    if (path) txtFichierTyp = *path;
}

std::optional<CompilerCommand> CompilerModel::Command1_Click() {
    std::string reason;
    if (!TruncateFile(txtFichierTyp, reason)) {
        prompts_.Warn(Caption, txtFichierTyp + kLineBreak + reason);
        return std::nullopt;
    }
    return BuildCompilerCommand(txtChemincGPSmapper, txtFichiertxt, txtFichierTyp);
}

std::string ErrorWindowText(const std::string& filePath, const std::string& readErrorLog) {
    return LookupText("Erreurs", "Erreurs rencontrées dans le fichier", "msgErreur") + "  : " + filePath +
           kLineBreak + std::string(150, '*') + kLineBreak + kLineBreak + readErrorLog;
}

ErrorWindowModel MakeErrorWindow(const std::string& filePath, const std::string& readErrorLog) {
    return {LookupText("Erreurs", "Erreurs", "Erreurs"), ErrorWindowText(filePath, readErrorLog),
            LookupText("Erreurs", "Copier dans le presse-papier", "cmdCopier"),
            LookupText("Erreurs", "Fermer", "cmdFermer")};
}

ColourIdentity IdentifyColour(std::uint32_t colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
    const std::string label(text);
    return {label, "0x" + label.substr(2, 3), "0x" + label.substr(5, 2)};
}

}  // namespace mirvane

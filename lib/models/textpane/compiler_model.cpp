#include "models/textpane/compiler_model.h"

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

std::string CompilerWindowTitle() {
    return CompilerText("Compiler un fichier txt avec cGPSmapper", "frmCompilerCaption");
}

std::string ToolFieldCaption() { return CompilerText("Emplacement de CGPSmapper", "cGPSmapperPath"); }

std::string TextFieldCaption() { return CompilerText("Emplacement du fichier txt à compiler", "txtPath"); }

std::string TypFieldCaption() { return CompilerText("Emplacement du fichier typ à créér", "typPath"); }

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

CompilerModel::CompilerModel(UserPrompts& prompts) : prompts_(prompts), toolPath_(DefaultCompilerPath()) {}

void CompilerModel::SetTextPath(std::string path) {
    textPath_ = std::move(path);
    if (auto typPath = TypPathFor(textPath_)) typPath_ = *typPath;
}

void CompilerModel::LoadToolPath(const std::optional<std::string>& storedPath) {
    if (storedPath) {
        toolPath_ = *storedPath;
        return;
    }
    prompts_.Inform(CompilerText("Emplacement de cGPSmapper", "msg2"),
                    CompilerText("Rechercher le chemin du fichier cGPSmapper.exe", "msg1"));
}

std::optional<CompilerModel::SettingWrite> CompilerModel::BrowseForTool() {
    const auto path = prompts_.ChooseOpenPath(ToolFieldCaption(), Filter("Fichiers exécutables", "filter3", "*.exe"));
    if (!path) return std::nullopt;
    toolPath_ = *path;
    return SettingWrite{CompilerPathWriteKey(), *path};
}

void CompilerModel::BrowseForText() {
    const auto path = prompts_.ChooseOpenPath(TextFieldCaption(), Filter("Fichiers texte", "filter1", "*.txt"));
    if (path) SetTextPath(*path);
}

void CompilerModel::BrowseForTyp() {
    const auto path = prompts_.ChooseSavePath(TypFieldCaption(), typPath_, Filter("Fichiers typ", "filter2", "*.typ"));
    if (path) typPath_ = *path;
}

std::optional<CompilerCommand> CompilerModel::Compile() {
    std::string reason;
    if (!TruncateFile(typPath_, reason)) {
        prompts_.Warn(CompilerWindowTitle(), typPath_ + kLineBreak + reason);
        return std::nullopt;
    }
    return BuildCompilerCommand(toolPath_, textPath_, typPath_);
}

}  // namespace mirvane

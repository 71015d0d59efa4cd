// mirvane-cli: the TYP core from the command line, for scripts and map build pipelines.
#include <filesystem>
#include <iostream>
#include <algorithm>
#include <map>

#include "commands.h"
#include "base/working_memory.h"
#include "lang/lookup.h"

using namespace mirvane::cli;

namespace {

const char* const kUsage =
    "Usage: mirvane-cli [--language NAME] COMMAND [ARGS]\n"
    "\n"
    "Commands:\n"
    "  info FILE.typ                      header fields, counts, sections and the read log\n"
    "  roundtrip IN.typ -o OUT.typ        read a binary TYP and write it back\n"
    "  decompile IN.typ [-o OUT.txt]      write the text form of a binary TYP\n"
    "  compile IN.txt -o OUT.typ          compile a text TYP to a binary TYP\n"
    "  diff A B                           what two TYP files (.typ or .txt) draw differently\n"
    "  lint FILE                          what in a TYP file the GPS or other decoders stumble on\n"
    "  mapsets                            list the Garmin mapsets installed on this machine\n"
    "  special --kind K --from T --to T -o OUT.typ\n"
    "                                     a TYP that labels each object with its own type\n"
    "\n"
    "Messages and numbers are in English unless --language names another file of\n"
    "Langues (Francais is built in). Each command takes --help.\n"
    "Exit status: 0 ok, 1 read with logged errors (diff: differences, lint: findings),\n"
    "2 usage or I/O failure.\n";

// English unless the user names another language; without English.lng the
// built-in French remains.
void ChooseLanguage(Arguments& args, const std::filesystem::path& programFolder) {
    mirvane::SetLanguageFolder(mirvane::ChooseLanguageFolder(programFolder.string()));
    std::string name = "English";
    TakeOption(args, "--language", name);
    if (name == mirvane::kBuiltInLanguage || mirvane::LanguageExists(name)) mirvane::SetLanguageName(name);
}

// Heap for a run over the files the command line names (not what follows
// -o), measured on the shared corpus: a start takes about 256 KB, a text's
// lines and records about 3.5 times the text, and a decompile lists into room
// for the longest text its records can give, about 12 times the binary.
void PrepareMemoryForInputs(const Arguments& commandLine) {
    std::uintmax_t inputBytes = 0;
    bool decompile = false;
    for (std::size_t k = 1; k < commandLine.size(); ++k) {
        if (commandLine[k] == "-o") {
            ++k;
            continue;
        }
        decompile = decompile || commandLine[k] == "decompile";
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(commandLine[k], error);
        if (!error) inputBytes += size;
    }
    if (inputBytes == 0) return;
    const std::uintmax_t perInputByte = decompile ? 12 : 4;
    mirvane::PrepareWorkingMemory(256 * 1024 + perInputByte * std::min<std::uintmax_t>(inputBytes, 16 << 20));
}

// `args` starts with the program's own path.
int Run(const Arguments& commandLine) {
    Arguments args(commandLine.begin() + 1, commandLine.end());
    ChooseLanguage(args, std::filesystem::absolute(commandLine[0]).parent_path());
    if (args.empty() || args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
        std::cout << kUsage;
        return args.empty() ? kExitFailure : kExitOk;
    }
    if (args[0] == "--version") {
        std::cout << "mirvane-cli " << MIRVANE_VERSION_TEXT << "\n";
        return kExitOk;
    }
    const std::map<std::string, int (*)(const Arguments&)> commands = {
        {"info", InfoCommand},
        {"roundtrip", RoundtripCommand},
        {"decompile", DecompileCommand},
        {"compile", CompileCommand},
        {"mapsets", MapsetsCommand},
        {"diff", DiffCommand},
        {"lint", LintCommand},
        {"special", SpecialCommand},
    };
    const auto command = commands.find(args[0]);
    if (command == commands.end()) {
        std::cerr << "mirvane-cli: unknown command '" << args[0] << "'\n\n" << kUsage;
        return kExitFailure;
    }
    return command->second(Arguments(args.begin() + 1, args.end()));
}

}  // namespace

int main(int argc, char** argv) {
    const Arguments commandLine(argv, argv + argc);
    PrepareMemoryForInputs(commandLine);
    return RunGuarded(Run, commandLine);
}

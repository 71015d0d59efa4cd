// mirvane-cli: the TYP core from the command line, for scripts and map build pipelines.
#include <filesystem>
#include <iostream>
#include <map>

#include "commands.h"
#include "lang/lookup.h"

using namespace mirvane::cli;

namespace {

const char* const kUsage =
    "Usage: mirvane-cli COMMAND [ARGS]\n"
    "\n"
    "Commands:\n"
    "  info FILE.typ                      header fields, counts, sections and the read log\n"
    "  roundtrip IN.typ -o OUT.typ        read a binary TYP and write it back\n"
    "  decompile IN.typ [-o OUT.txt]      write the text form of a binary TYP\n"
    "  compile IN.txt -o OUT.typ          compile a text TYP to a binary TYP\n"
    "  mapsets                            list the Garmin mapsets installed on this machine\n"
    "  special --kind K --from T --to T -o OUT.typ\n"
    "                                     a TYP that labels each object with its own type\n"
    "\n"
    "Each command takes --help. Exit status: 0 ok, 1 read with logged errors, 2 usage or I/O failure.\n";

}  // namespace

int main(int argc, char** argv) {
    Arguments args(argv + 1, argv + argc);
    if (args.empty() || args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
        std::cout << kUsage;
        return args.empty() ? kExitFailure : kExitOk;
    }
    const std::filesystem::path program = std::filesystem::absolute(argv[0]).parent_path();
    mirvane::SetLanguageFolder(mirvane::ChooseLanguageFolder(program.string()));

    const std::map<std::string, int (*)(const Arguments&)> commands = {
        {"info", InfoCommand},
        {"roundtrip", RoundtripCommand},
        {"decompile", DecompileCommand},
        {"compile", CompileCommand},
        {"mapsets", MapsetsCommand},
        {"special", SpecialCommand},
    };
    const auto command = commands.find(args[0]);
    if (command == commands.end()) {
        std::cerr << "mirvane-cli: unknown command '" << args[0] << "'\n\n" << kUsage;
        return kExitFailure;
    }
    return command->second(Arguments(args.begin() + 1, args.end()));
}

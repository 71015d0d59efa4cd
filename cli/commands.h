// Subcommands of mirvane-cli. Each returns the process exit status:
// 0 success with an empty log, 1 success with logged errors, 2 usage or I/O failure.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace mirvane::cli {

enum ExitStatus { kExitOk = 0, kExitLogged = 1, kExitFailure = 2 };

using Arguments = std::vector<std::string>;

int InfoCommand(const Arguments& args);
int RoundtripCommand(const Arguments& args);
int DecompileCommand(const Arguments& args);
int CompileCommand(const Arguments& args);
int MapsetsCommand(const Arguments& args);
int SpecialCommand(const Arguments& args);

// True when the arguments ask for help.
bool WantsHelp(const Arguments& args);

// Prints the log of a read to stderr and gives the exit status it implies.
int ReportLog(const std::string& log, bool flagged);

// Parses "--header-size N" style options; the value of `name` or empty.
bool TakeOption(Arguments& args, const std::string& name, std::string& value);
bool TakeFlag(Arguments& args, const std::string& name);

}  // namespace mirvane::cli

namespace mirvane {
struct TypIdentity;
struct Document;
}  // namespace mirvane

namespace mirvane::cli {

// Sets the header size from a command-line value; false when it is no number.
bool ApplyHeaderSizeOption(TypIdentity& identity, const std::string& value);

// --fid and --product-code: false, after saying why, for a value out of range.
bool ApplyIdentityOption(std::optional<std::uint16_t>& field, const char* option, const std::string& value);

// Saves like the program's save command and reports a failure on stderr.
int SaveAndReport(Document& doc, const std::string& path);

using DocumentOpener = bool (*)(Document&, const std::string&);

// Opens `path` with `open`; false, after saying so on stderr, when it cannot be read.
bool OpenOrReport(Document& doc, const std::string& path, DocumentOpener open);

// Opens IN with `open`, applies the --header-size, --fid and --product-code
// options and saves to -o OUT: roundtrip and compile.
int ReadAndSaveCommand(const Arguments& args, const char* help, DocumentOpener open);

}  // namespace mirvane::cli

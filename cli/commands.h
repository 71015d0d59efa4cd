// Subcommands of mirvane-cli. Each returns the process exit status:
// 0 success with an empty log, 1 success with logged errors, 2 usage or I/O failure.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
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
// Their own statuses: 0 same drawing or clean, 1 differences or findings, 2 failure.
int DiffCommand(const Arguments& args);
int LintCommand(const Arguments& args);

// Runs `command` with a last-resort handler: whatever escapes it becomes a
// message on stderr and exit status 2, never an abort.
int RunGuarded(int (*command)(const Arguments&), const Arguments& args);

// True when the arguments ask for help.
bool WantsHelp(const Arguments& args);

// Prints the log of a read to stderr and gives the exit status it implies.
int ReportLog(const std::string& log, bool flagged);

// Parses "--header-size N" style options; the value of `name` or empty.
bool TakeOption(Arguments& args, const std::string& name, std::string& value);
bool TakeFlag(Arguments& args, const std::string& name);

// False, after saying so, when `output` is the file `input` (by any name)
// and --in-place was not given: writing there would replace the input.
bool CheckOutputIsNotInput(const std::string& input, const std::string& output, bool inPlace);

// Writes `bytes` to `path` through the one save path; false after saying why.
bool WriteOrReport(const std::string& path, std::string_view bytes);

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

// Opens `path` with `open`; false, after saying why on stderr, when it is no
// file that can be read (a folder, a device, a pipe, a file too large).
bool OpenOrReport(Document& doc, const std::string& path, DocumentOpener open);

// False, after saying so, when the read found no TYP at all: a binary file
// without a TYP header, or a text with neither [_id] nor any object. Such a
// read must not replace anything.
bool CheckFoundTyp(const Document& doc, const std::string& path);

// Opens IN with `open`, applies the --header-size, --fid and --product-code
// options and saves to -o OUT: roundtrip and compile.
int ReadAndSaveCommand(const Arguments& args, const char* help, DocumentOpener open);

}  // namespace mirvane::cli

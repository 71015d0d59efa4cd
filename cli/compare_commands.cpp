// diff: what two TYP files draw differently; lint: what in one TYP other
// decoders, the GPS or the writer will stumble on.
#include <algorithm>
#include <cctype>
#include <iostream>

#include "commands.h"
#include "compare/drawing_diff.h"
#include "compare/lint.h"
#include "document/binary_reader.h"
#include "text/parser.h"

namespace mirvane::cli {

namespace {

const char* const kDiffHelp =
    "Usage: mirvane-cli diff A B\n"
    "Compares what two TYP files draw, object by object (binary .typ or text .txt on\n"
    "either side): objects added or removed, colours, transparency, pixels, widths,\n"
    "labels, fonts and draw order levels, one line a difference.\n"
    "Exit status: 0 both draw the same, 1 they differ, 2 usage or I/O failure.\n";

const char* const kLintHelp =
    "Usage: mirvane-cli lint FILE\n"
    "Lists what in a TYP file (binary .typ or text .txt) the GPS, other decoders or the\n"
    "writer will stumble on, one line a finding with what to do.\n"
    "Exit status: 0 clean, 1 findings, 2 usage or I/O failure.\n";

bool IsTextPath(const std::string& path) {
    if (path.size() < 4) return false;
    std::string extension = path.substr(path.size() - 4);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension == ".txt";
}

// A text by its .txt extension, anything else as a binary TYP.
bool OpenByExtension(Document& doc, const std::string& path) {
    return OpenOrReport(doc, path, IsTextPath(path) ? OpenTypText : OpenBinaryTyp);
}

int PrintLines(const std::vector<std::string>& lines) {
    for (const auto& line : lines) std::cout << line << "\n";
    return lines.empty() ? kExitOk : kExitLogged;
}

}  // namespace

int DiffCommand(const Arguments& args) {
    if (WantsHelp(args)) {
        std::cout << kDiffHelp;
        return kExitOk;
    }
    if (args.size() != 2) {
        std::cerr << kDiffHelp;
        return kExitFailure;
    }
    Document before, after;
    if (!OpenByExtension(before, args[0]) || !OpenByExtension(after, args[1])) return kExitFailure;
    return PrintLines(CompareDrawings(before, after));
}

int LintCommand(const Arguments& args) {
    if (WantsHelp(args)) {
        std::cout << kLintHelp;
        return kExitOk;
    }
    if (args.size() != 1) {
        std::cerr << kLintHelp;
        return kExitFailure;
    }
    Document doc;
    if (!OpenByExtension(doc, args[0])) return kExitFailure;
    return PrintLines(LintDocument(doc));
}

}  // namespace mirvane::cli

// decompile: binary TYP to the text form; compile: text form to binary TYP.
#include <iostream>

#include "base/ascii.h"
#include "base/codepage.h"
#include "commands.h"
#include "document/binary_reader.h"
#include "document/presentation.h"
#include "text/listing.h"
#include "text/parser.h"

namespace mirvane::cli {

namespace {

const char* const kDecompileHelp =
    "Usage: mirvane-cli decompile IN.typ [-o OUT.txt] [--no-heading] [--encoding utf-8] [--in-place]\n"
    "Writes the text form of a binary TYP (CR LF line ends, labels in the file's code page)\n"
    "to OUT.txt, or to standard output. --no-heading leaves out the four heading comments.\n"
    "--encoding utf-8 writes the text in UTF-8 with a byte order mark; compiling it gives\n"
    "the labels back in the file's code page.\n"
    "OUT may be IN only with --in-place.\n";

const char* const kCompileHelp =
    "Usage: mirvane-cli compile IN.txt -o OUT.typ [--header-size 91|110|156|164|174|N]\n"
    "                           [--fid N] [--product-code N] [--in-place]\n"
    "Compiles a text TYP to a binary TYP. FID and product code come from [_id] unless given;\n"
    "the header size is 91 unless given. The labels of a UTF-8 text are converted to the\n"
    "code page of CodePage= in [_id].\n";

}  // namespace

int DecompileCommand(const Arguments& input) {
    Arguments args = input;
    if (WantsHelp(args)) {
        std::cout << kDecompileHelp;
        return kExitOk;
    }
    std::string output;
    const bool toFile = TakeOption(args, "-o", output);
    const bool noHeading = TakeFlag(args, "--no-heading");
    const bool inPlace = TakeFlag(args, "--in-place");
    std::string encoding;
    const bool utf8 = TakeOption(args, "--encoding", encoding);
    if (args.size() != 1 || (utf8 && AsciiLower(encoding) != "utf-8")) {
        std::cerr << kDecompileHelp;
        return kExitFailure;
    }
    if (toFile && !CheckOutputIsNotInput(args[0], output, inPlace)) return kExitFailure;
    Document doc;
    if (!OpenOrReport(doc, args[0], OpenBinaryTyp) || !CheckFoundTyp(doc, args[0])) return kExitFailure;
    ListingContext context{DateCreationCaption(doc.Header), LocalTime::Now(), !noHeading};
    std::string text = ListWholeDocument(doc, context, ListingForm::PlainOnly).Plain();
    if (utf8) text = "\xEF\xBB\xBF" + DecodeDocumentBytes(text, doc.Identity.CodePage);
    if (toFile) {
        if (!WriteOrReport(output, text)) return kExitFailure;
    } else {
        std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
        std::cout.flush();
    }
    return ReportLog(doc.ReadErrorLog, doc.ReadErrorFlag);
}

int CompileCommand(const Arguments& args) { return ReadAndSaveCommand(args, kCompileHelp, OpenTypText); }

}  // namespace mirvane::cli

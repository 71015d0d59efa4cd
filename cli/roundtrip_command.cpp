#include <iostream>
#include <optional>

#include "commands.h"
#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "document/identity.h"
#include "document/file_messages.h"
#include "document/presentation.h"
#include "base/numbers.h"

namespace mirvane::cli {

namespace {

const char* const kHelp =
    "Usage: mirvane-cli roundtrip IN.typ -o OUT.typ [--header-size 91|110|156|164|174|N]\n"
    "                             [--fid N] [--product-code N] [--in-place]\n"
    "Reads a binary TYP and writes it back with fresh offsets and today's date.\n"
    "The header size, FID and product code default to those of the file read.\n"
    "OUT may be IN only with --in-place.\n";

}  // namespace

// A value out of range stops the command rather than being saved as some other number.
bool ApplyIdentityOption(std::optional<std::uint16_t>& field, const char* option, const std::string& value) {
    field = ParseIdentityNumber(value);
    if (!field) std::cerr << "mirvane-cli: " << option << " " << value << ": " << IdentityRangeMessage() << "\n";
    return field.has_value();
}


bool ApplyHeaderSizeOption(TypIdentity& identity, const std::string& value) {
    if (value.empty() || value.find_first_not_of("0123456789") != std::string::npos) return false;
    const std::int64_t size = LeadingNumber(value);
    if (size < 91 || size > 65535) return false;
    identity.HeaderSize = static_cast<int>(size);
    return true;
}

int SaveAndReport(Document& doc, const std::string& path) {
    if (const auto failure = SaveBinaryTyp(doc, path)) {
        if (failure->Write != WriteStatus::Written) {
            std::cerr << "mirvane-cli: cannot write " << path << ": "
                      << WriteFailureText(failure->Write, failure->Reason) << "\n";
            return kExitFailure;
        }
        std::string message = SaveFailureMessage(*failure);
        if (!failure->Title.empty()) message = failure->Title + ": " + message;
        std::cerr << "mirvane-cli: " << path << ": " << message << "\n";
        return kExitFailure;
    }
    return kExitOk;
}

int ReadAndSaveCommand(const Arguments& input, const char* help, DocumentOpener open) {
    Arguments args = input;
    if (WantsHelp(args)) {
        std::cout << help;
        return kExitOk;
    }
    std::string output, headerSize, fid, productCode;
    const bool hasOutput = TakeOption(args, "-o", output);
    const bool hasHeaderSize = TakeOption(args, "--header-size", headerSize);
    const bool hasFid = TakeOption(args, "--fid", fid);
    const bool hasProductCode = TakeOption(args, "--product-code", productCode);
    const bool inPlace = TakeFlag(args, "--in-place");
    if (!hasOutput || args.size() != 1) {
        std::cerr << help;
        return kExitFailure;
    }
    if (!CheckOutputIsNotInput(args[0], output, inPlace)) return kExitFailure;
    Document doc;
    if (!OpenOrReport(doc, args[0], open) || !CheckFoundTyp(doc, args[0])) return kExitFailure;
    if ((hasFid && !ApplyIdentityOption(doc.Identity.Fid, "--fid", fid)) ||
        (hasProductCode && !ApplyIdentityOption(doc.Identity.ProductCode, "--product-code", productCode)))
        return kExitFailure;
    if (hasHeaderSize && !ApplyHeaderSizeOption(doc.Identity, headerSize)) {
        std::cerr << "mirvane-cli: --header-size takes a number of bytes from 91 to 65535\n";
        return kExitFailure;
    }
    const int logStatus = ReportLog(doc.ReadErrorLog, doc.ReadErrorFlag);
    const int saveStatus = SaveAndReport(doc, output);
    return saveStatus != kExitOk ? saveStatus : logStatus;
}

int RoundtripCommand(const Arguments& args) { return ReadAndSaveCommand(args, kHelp, OpenBinaryTyp); }

}  // namespace mirvane::cli

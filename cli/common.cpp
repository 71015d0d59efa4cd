#include <exception>
#include <filesystem>
#include <iostream>

#include "base/file_io.h"
#include "commands.h"
#include "document/binary_reader.h"
#include "document/file_messages.h"

namespace mirvane::cli {

int RunGuarded(int (*command)(const Arguments&), const Arguments& args) {
    try {
        return command(args);
    } catch (const std::exception& failure) {
        std::cerr << "mirvane-cli: unexpected failure: " << failure.what() << "\n";
    } catch (...) {
        std::cerr << "mirvane-cli: unexpected failure\n";
    }
    return kExitFailure;
}

bool WantsHelp(const Arguments& args) {
    for (const auto& arg : args)
        if (arg == "--help" || arg == "-h") return true;
    return false;
}

int ReportLog(const std::string& log, bool flagged) {
    if (log.empty() && !flagged) return kExitOk;
    std::string text;
    text.reserve(log.size());
    for (char c : log)
        if (c != '\r') text += c;
    std::cerr << text << "\n";
    return kExitLogged;
}

bool TakeOption(Arguments& args, const std::string& name, std::string& value) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] != name) continue;
        if (i + 1 >= args.size()) return false;
        value = args[i + 1];
        args.erase(args.begin() + static_cast<long>(i), args.begin() + static_cast<long>(i) + 2);
        return true;
    }
    return false;
}

bool TakeFlag(Arguments& args, const std::string& name) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] != name) continue;
        args.erase(args.begin() + static_cast<long>(i));
        return true;
    }
    return false;
}

bool CheckOutputIsNotInput(const std::string& input, const std::string& output, bool inPlace) {
    std::error_code error;
    if (inPlace || !std::filesystem::equivalent(PathFromUtf8(input), PathFromUtf8(output), error)) return true;
    std::cerr << "mirvane-cli: " << output << " is the input file; give --in-place to replace it\n";
    return false;
}

bool WriteOrReport(const std::string& path, std::string_view bytes) {
    const WriteResult written = WriteFileAtomically(PathFromUtf8(path), bytes);
    if (written.Ok()) return true;
    std::cerr << "mirvane-cli: cannot write " << path << ": " << WriteFailureText(written.Status, written.Reason)
              << "\n";
    return false;
}

bool OpenOrReport(Document& doc, const std::string& path, DocumentOpener open) {
    ReadResult problem = InspectInputFile(PathFromUtf8(path));
    if (problem.Ok() && open(doc, path)) return true;
    if (problem.Ok()) problem = {ReadStatus::Failed, "read error"};  // it changed between the check and the read
    std::cerr << "mirvane-cli: cannot read " << path;
    if (const std::string why = ReadFailureText(problem); !why.empty()) std::cerr << ": " << why;
    std::cerr << "\n";
    return false;
}

bool CheckFoundTyp(const Document& doc, const std::string& path) {
    const bool found = doc.FromText ? doc.Identity.Fid.has_value() || doc.PolygonCount() > 0 ||
                                          !doc.Polylines.empty() || doc.PoiCount() > 0 || !doc.DrawOrder.empty()
                                    : HasTypSignature(doc.Header);
    if (found) return true;
    ReportLog(doc.ReadErrorLog, doc.ReadErrorFlag);
    std::cerr << "mirvane-cli: " << path << " holds no TYP; nothing written\n";
    return false;
}

}  // namespace mirvane::cli

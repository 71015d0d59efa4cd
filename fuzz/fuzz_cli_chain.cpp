// Any bytes given to the command line as a TYP, run through decompile and
// then compile of the text written, exactly as mirvane-cli runs them: the
// chain must end with an exit status, never a crash, a hang or an escaped
// exception, and whatever it writes must read back.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include <unistd.h>

#include "commands.h"
#include "document/binary_reader.h"

namespace {

namespace fs = std::filesystem;

// On tmpfs where there is one: the saves sync every file they write.
fs::path WorkFolder() {
    static const fs::path folder = [] {
        const fs::path base = fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
        fs::path made = base / ("mirvane-fuzz-cli-" + std::to_string(::getpid()));
        fs::create_directories(made);
        return made;
    }();
    return folder;
}

int Run(int (*command)(const mirvane::cli::Arguments&), const mirvane::cli::Arguments& args) {
    const int status = command(args);
    if (status < 0 || status > 2) __builtin_trap();
    return status;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fs::path in = WorkFolder() / "in.typ", text = WorkFolder() / "in.txt", out = WorkFolder() / "out.typ";
    std::error_code ignored;
    fs::remove(text, ignored);
    fs::remove(out, ignored);
    std::ofstream(in, std::ios::binary).write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));

    // The commands report on stderr; the fuzzer's own output stays readable.
    std::ostringstream discarded;
    std::streambuf* const stderrBuffer = std::cerr.rdbuf(discarded.rdbuf());
    const int decompiled = Run(mirvane::cli::DecompileCommand, {in.string(), "-o", text.string()});
    if (decompiled != mirvane::cli::kExitFailure)
        Run(mirvane::cli::CompileCommand, {text.string(), "-o", out.string()});
    std::cerr.rdbuf(stderrBuffer);

    if (fs::exists(out)) {
        mirvane::Document back;
        if (!mirvane::OpenBinaryTyp(back, out.string())) __builtin_trap();
    }
    return 0;
}

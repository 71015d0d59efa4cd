// Files that are not what they seem, and saves that go wrong: inputs are
// refused before they are read, and a save leaves either the old file or
// the new one, never a mix, never a stray temporary, never a replaced device.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "base/file_io.h"
#include "corpus.h"
#include "document/binary_reader.h"
#include "document/binary_writer.h"
#include "models/shell/main_window_model.h"
#include "models/textpane/text_pane_session.h"
#include "scripted_prompts.h"
#include "temp_folder.h"

namespace mirvane {
namespace {

namespace fs = std::filesystem;
using testing::ReadFileText;
using testing::TempFolder;

void WriteText(const fs::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

fs::perms Mode(const fs::path& path) { return fs::status(path).permissions(); }

// Every entry of the folder but `keep`: the temporaries a save left behind.
std::vector<std::string> Strays(const fs::path& folder, const std::string& keep) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().filename() != keep) names.push_back(entry.path().filename().string());
    return names;
}

// Clears the hook whatever the test's outcome.
struct HookGuard {
    explicit HookGuard(std::function<bool(const fs::path&)> hook) { SetBeforeReplaceHook(std::move(hook)); }
    ~HookGuard() { SetBeforeReplaceHook({}); }
};

std::string SamplePath() { return std::string(MIRVANE_SOURCE_DIR) + "/samples/sample.typ"; }

TEST(InputFiles, OnlyRegularFilesOfASaneSizeAreRead) {
    TempFolder folder;
    const fs::path fifo = folder.Path() / "pipe";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const fs::path huge = folder.Path() / "huge.typ";
    WriteText(huge, "");
    fs::resize_file(huge, kMaxInputFileSize + 1);  // sparse: no disk is used
    const fs::path empty = folder.Path() / "empty.typ";
    WriteText(empty, "");
    struct Case {
        fs::path Path;
        ReadStatus Expected;
    };
    for (const Case& c : {Case{folder.Path(), ReadStatus::NotRegularFile}, Case{"/dev/zero", ReadStatus::NotRegularFile},
                          Case{fifo, ReadStatus::NotRegularFile},
                          Case{huge, ReadStatus::TooLarge}, Case{folder.Path() / "absent", ReadStatus::Missing},
                          Case{empty, ReadStatus::Read}}) {
        Bytes bytes{1, 2, 3};
        EXPECT_EQ(ReadInputFile(c.Path, bytes).Status, c.Expected) << c.Path;
        EXPECT_EQ(bytes.empty(), c.Expected == ReadStatus::Read) << "a refused read leaves the buffer: " << c.Path;
        Document doc;
        EXPECT_EQ(OpenBinaryTyp(doc, c.Path.string()), c.Expected == ReadStatus::Read) << c.Path;
    }
}

TEST(AtomicSave, ReplacesTheContentAndKeepsTheModeAndTheLink) {
    TempFolder folder;
    const fs::path real = folder.Path() / "real.txt";
    const fs::path link = folder.Path() / "link.txt";
    WriteText(real, "old");
    fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write);  // 0600
    fs::create_symlink("real.txt", link);

    ASSERT_TRUE(WriteFileAtomically(link, std::string_view("new content")).Ok());
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(link)));
    EXPECT_EQ(ReadFileText(real), "new content");
    EXPECT_EQ(Mode(real), fs::perms::owner_read | fs::perms::owner_write);

    // A link to a file not there yet makes the file, not a plain file in its place.
    const fs::path dangling = folder.Path() / "dangling.txt";
    fs::create_symlink("later.txt", dangling);
    ASSERT_TRUE(WriteFileAtomically(dangling, std::string_view("made")).Ok());
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(dangling)));
    EXPECT_EQ(ReadFileText(folder.Path() / "later.txt"), "made");
}

TEST(AtomicSave, TargetsThatAreNoRegularFileAreNeverReplaced) {
    TempFolder folder;
    const fs::path fifo = folder.Path() / "pipe";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    for (const fs::path& target : {fifo, fs::path("/dev/null")}) {
        const fs::file_type before = fs::status(target).type();
        EXPECT_EQ(WriteFileAtomically(target, std::string_view("x")).Status, WriteStatus::NotRegularFile) << target;
        EXPECT_EQ(fs::status(target).type(), before) << target;
    }
    EXPECT_TRUE(Strays(folder.Path(), "pipe").empty());
}

TEST(AtomicSave, ReadOnlyTargetIsReplacedOnlyWhenAskedAndStaysReadOnly) {
    TempFolder folder;
    const fs::path target = folder.Path() / "locked.txt";
    WriteText(target, "keep me");
    fs::permissions(target, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    EXPECT_EQ(InspectWriteTarget(target), TargetKind::ReadOnly);
    EXPECT_EQ(WriteFileAtomically(target, std::string_view("lost")).Status, WriteStatus::ReadOnly);
    EXPECT_EQ(ReadFileText(target), "keep me");
    ASSERT_TRUE(WriteFileAtomically(target, std::string_view("replaced"), ReadOnlyTarget::Replace).Ok());
    EXPECT_EQ(ReadFileText(target), "replaced");
    EXPECT_EQ(InspectWriteTarget(target), TargetKind::ReadOnly);
    EXPECT_TRUE(Strays(folder.Path(), "locked.txt").empty());
}

TEST(AtomicSave, FailureBeforeTheRenameLeavesTheOldFileAndNoTemporary) {
    TempFolder folder;
    const fs::path target = folder.Path() / "map.typ";
    const std::string old = ReadFileText(SamplePath());
    WriteText(target, old);
    std::vector<std::uintmax_t> sizes;
    HookGuard hook([&](const fs::path& temporary) {
        EXPECT_EQ(temporary.parent_path(), target.parent_path()) << "beside the target, for one rename";
        sizes.push_back(fs::file_size(temporary));
        return false;
    });
    const WriteResult result = WriteFileAtomically(target, std::string_view("short"));
    EXPECT_EQ(result.Status, WriteStatus::Failed);
    EXPECT_FALSE(result.Reason.empty());
    EXPECT_EQ(sizes, std::vector<std::uintmax_t>{5}) << "written in full before the rename";
    EXPECT_EQ(ReadFileText(target), old);
    EXPECT_TRUE(Strays(folder.Path(), "map.typ").empty());

    // The TYP save goes the same way and keeps the document marked as changed.
    Document doc;
    ASSERT_TRUE(OpenBinaryTyp(doc, SamplePath()));
    doc.ModifiedFlag = true;
    const auto failure = SaveBinaryTyp(doc, target.string());
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->Write, WriteStatus::Failed);
    EXPECT_TRUE(doc.ModifiedFlag);
    EXPECT_EQ(ReadFileText(target), old);
}

TEST(AtomicSave, ConcurrentSavesEachLeaveAWholeFile) {
    TempFolder folder;
    const fs::path target = folder.Path() / "shared.txt";
    const std::string a(200000, 'a'), b(300000, 'b');
    WriteText(target, a);
    std::atomic<bool> done{false};
    std::atomic<int> mixed{0}, failed{0};
    auto saver = [&](const std::string& content) {
        for (int i = 0; i < 40; ++i)
            if (!WriteFileAtomically(target, content).Ok()) ++failed;
    };
    std::thread reader([&] {
        while (!done) {
            const std::string seen = ReadFileText(target);
            if (seen != a && seen != b) ++mixed;
        }
    });
    std::thread first(saver, a), second(saver, b);
    first.join();
    second.join();
    done = true;
    reader.join();
    EXPECT_EQ(failed, 0);
    EXPECT_EQ(mixed, 0) << "a reader saw a file that was neither save's whole content";
    const std::string last = ReadFileText(target);
    EXPECT_TRUE(last == a || last == b);
    EXPECT_TRUE(Strays(folder.Path(), "shared.txt").empty());
}

// The window's saves: a read-only file is replaced only after a second
// question; a failed text save keeps the old text.
struct WindowSave : ::testing::Test {
    Document doc;
    ScriptedPrompts prompts;
    MemorySettingsStore settings;
    MainWindowModel model{doc, prompts, settings, "v0.1.0"};
    TempFolder folder;
};

TEST_F(WindowSave, ReadOnlyTargetNeedsASecondYes) {
    const fs::path target = folder.Path() / "locked.typ";
    WriteText(target, "keep me");
    fs::permissions(target, fs::perms::owner_read);
    ASSERT_TRUE(model.OpenTyp(SamplePath()));
    prompts.Paths = {target.string(), target.string()};
    prompts.Answers = {true, false, true, true};  // replace? read-only, replace still? no; then yes, yes
    ASSERT_TRUE(model.SaveTyp());
    EXPECT_EQ(prompts.Texts("ask").size(), 4u);
    Document back;
    ASSERT_TRUE(OpenBinaryTyp(back, target.string()));
    EXPECT_EQ(back.PoiCount(), doc.PoiCount());
    EXPECT_EQ(Mode(target), fs::perms::owner_read);
}

TEST_F(WindowSave, TextSaveFailureKeepsTheOldText) {
    ASSERT_TRUE(model.OpenTyp(SamplePath()));
    TextPaneSession session(model, prompts);
    const fs::path target = folder.Path() / "map.txt";
    WriteText(target, "previous text");
    HookGuard hook([](const fs::path&) { return false; });
    prompts.Paths = {target.string()};
    prompts.Answers = {true};
    EXPECT_FALSE(session.SaveText("new text"));
    EXPECT_EQ(ReadFileText(target), "previous text");
    EXPECT_EQ(prompts.Texts("warn").size(), 1u);
    EXPECT_TRUE(Strays(folder.Path(), "map.txt").empty());
}

}  // namespace
}  // namespace mirvane

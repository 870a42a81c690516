// Whatever the handheld's files hold, a run ends in one of its own ways: it is complete, it ends early, or a
// failure goes its way to the end of the program. It asks for nothing but Yes and No, keeps the archive
// whole, and touches the handheld's files only at the end of a complete run. The first byte chooses the
// handheld and the answers; the rest is the three files with a record separator (1E) between them.

#include "Require.h"
#include "app/Application.h"
#include "controls/Person.h"
#include "controls/Screen.h"
#include "handheld/AnsweringDisplay.h"
#include "support/FileCalls.h"
#include "support/TemporaryFolder.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

using namespace tallybrook;
using test::require;
namespace fs = std::filesystem;

namespace {

constexpr std::array<const char*, 3> kNames{"tblEvent", "tblGame", "tblFrame"};
using Files = std::array<std::string, kNames.size()>;

constexpr unsigned kPalm = 1;
constexpr unsigned kDelete = 2;
constexpr unsigned kTakeDuplicates = 4;

Files filesIn(std::string_view bytes) {
    Files files;
    std::size_t at = 0;
    for (const char byte : bytes) {
        if (byte == '\x1E' && at + 1 < files.size())
            ++at;
        else
            files.at(at) += byte;
    }
    return files;
}

std::string read(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return (std::ostringstream() << stream.rdbuf()).str();
}

fs::path cdb(const fs::path& folder, std::size_t at) {
    return folder / (std::string(kNames.at(at)) + ".cdb");
}

Answer answerTo(const MessageBox& box, unsigned choice) {
    if (box.title == "Delete PDA Data")
        return (choice & kDelete) != 0 ? Answer::Yes : Answer::No;
    if (box.title == "Duplicate Record ID")
        return (choice & kTakeDuplicates) != 0 ? Answer::Yes : Answer::No;
    return box.title == "Database Check" ? Answer::No : box.defaultAnswer();
}

/// A run over these files, in a program of its own.
class Run {
public:
    Run(const Files& files, unsigned choice)
        : files_(files),
          isPalm_((choice & kPalm) != 0),
          display_([choice](const MessageBox& box) { return answerTo(box, choice); }),
          application_(display_, clock_, data_) {
        application_.start();
        Program& program = application_.program();
        program.session.gHHType = isPalm_ ? "Palm" : "PPC";
        program.session.gHHSyncDir = hand_.string();
        fs::create_directory(hand_);
        for (std::size_t at = 0; at < files.size(); ++at)
            std::ofstream(cdb(source(), at), std::ios::binary) << files.at(at);
        program.perform([&] { program.screens.load("frmSyncPDA"); });
        program.perform([&] { person::click(*program.screens.find("frmSyncPDA")->find("cmdAddPDA")); });
    }

    void check() {
        require(!display_.asked, "it asked for more than an answer");
        const bool isComplete = display_.boxes.back().text.starts_with("Sync is complete.");
        if (display_.uncaught)
            checkChain();
        else
            require(display_.boxes.back().title == "Sync Complete", "it ended without a word");
        for (std::size_t at = 0; at < files_.size(); ++at) {
            const std::string copy = std::string(kNames.at(at)) + "-11-14-2026-2155.cdb";
            require(read(working_ / "PDA DB Archive" / copy) == files_.at(at), "the archive is not whole");
            require(isComplete || read(cdb(source(), at)) == files_.at(at),
                    "a run that was not complete has changed the handheld's files");
            require(!isComplete || !fs::exists(working_ / (std::string(kNames.at(at)) + ".tmp")),
                    "a complete run has left its files");
        }
    }

private:
    [[nodiscard]] const fs::path& source() const { return isPalm_ ? hand_ : working_; }

    /// The failures behind the first one are those of files that it has closed.
    void checkChain() {
        require(display_.uncaught == error::kBadFileNameOrNumber, "another failure ended the program");
        const std::string& last = display_.boxes.back().text;
        require(last.ends_with("Module: Sync PDA, cmdAddPDA."), "the chain does not end with the run itself");
        require(application_.program().hasEnded(), "the program has not ended");
    }

    test::TemporaryFolder folder_;
    fs::path data_ = folder_.path() / "data";
    fs::path working_ = data_ / "TBRK";
    fs::path hand_ = data_ / "Hand";
    const Files& files_;
    bool isPalm_;
    SettableClock clock_{makeDate(2026, 11, 14) + std::chrono::hours{21} + std::chrono::minutes{55}};
    test::AnsweringDisplay display_;
    Application application_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    static const test::FileCalls sparingTheDisk({});
    const Files files = filesIn({reinterpret_cast<const char*>(data) + 1, size - 1});
    Run(files, data[0]).check();
    return 0;
}

// Whatever stands in the configuration, it is read or refused with error 5, and stays as it is; what was
// read, written anew, is read as the same.

#include "shell/Configuration.h"

#include "Require.h"
#include "handheld/AnsweringDisplay.h"
#include "shell/Program.h"
#include "support/TemporaryFolder.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>

using namespace tallybrook;
using test::require;

namespace {

std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return (std::ostringstream() << stream.rdbuf()).str();
}

bool isRead(Program& program) {
    try {
        require(Read_Config(program), "it is not found");
        return true;
    } catch (const RunTimeError& failure) {
        require(failure.number() == error::kInvalidProcedureCall, "another error was expected");
        return false;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TemporaryFolder folder;
    static const SystemClock clock;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::filesystem::path file = folder.path() / "tbrkcfg.conf";
    std::ofstream(file, std::ios::binary) << bytes;

    test::AnsweringDisplay display([](const MessageBox& box) { return box.defaultAnswer(); });
    Program program(display, clock, folder.path());
    const bool isSound = isRead(program);
    require(contentsOf(file) == bytes, "reading has changed it");
    require(display.boxes.empty(), "reading has brought up a box");
    if (!isSound)
        return 0;
    const SessionState before = program.session;
    Write_Config(program);
    require(isRead(program), "what was written is refused");
    require(program.session.gHHType == before.gHHType && program.session.gHHSyncDir == before.gHHSyncDir,
            "what was written is read as something else");
    return 0;
}

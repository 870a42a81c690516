#include "player/CommandTable.h"
#include "player/DesktopPlay.h"
#include "player/ModelStage.h"
#include "player/Options.h"
#include "player/PlayApplication.h"
#include "player/PlayStopped.h"
#include "runtime/OwnFiles.h"

#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

using namespace tallybrook;

namespace {

int play(const Options& options, std::istream& script, char* program) {
    if (options.where == Options::Where::Desktop)
        return playOnDesktop(options, script, std::cout, std::cerr, program);
    ModelStage stage;
    return playApplication(options, stage, script, std::cout, std::cerr);
}

int tellHowToPlay() {
    std::cout << kUsage << "\n\nOne command stands on a line of a script:\n" << commandForms();
    return status::kPlayed;
}

int playScript(const Options& options, char* program) {
    if (!options.script)
        return play(options, std::cin, program);
    std::ifstream script(*options.script);
    if (!script || std::filesystem::is_directory(*options.script))
        throw WrongUsage("there is no script " + options.script->string());
    return play(options, script, program);
}

}  // namespace

int main(int argc, char** argv) {
    setUpFiles();
    try {
        const std::vector<std::string> arguments(argv + 1, argv + argc);
        const Options options = readOptions(arguments);
        return options.help ? tellHowToPlay() : playScript(options, argv[0]);
    } catch (const WrongUsage& wrong) {
        std::cerr << wrong.what() << '\n' << kUsage << '\n';
        return status::kWrongUsage;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return status::kNotCarriedOut;
    }
}

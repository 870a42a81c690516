#include "runtime/OwnFiles.h"
#include "sample/Options.h"
#include "sample/Sample.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

using namespace tallybrook::sample;

namespace {

constexpr int kNotMade = 1;
constexpr int kWrongUsage = 2;

}  // namespace

int main(int argc, char** argv) {
    tallybrook::setUpFiles();
    try {
        const std::vector<std::string> arguments(argv + 1, argv + argc);
        const Options options = readOptions(arguments);
        if (options.help)
            std::cout << kHelp;
        else
            makeSample(options);
        return 0;
    } catch (const tallybrook::WrongUsage& wrong) {
        std::cerr << wrong.what() << '\n' << kUsage << '\n';
        return kWrongUsage;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return kNotMade;
    }
}

#pragma once

#include "controls/Lists.h"
#include "controls/Screen.h"
#include "sample/Dice.h"
#include "shell/Program.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace tallybrook::test {

/// Sits in front of the program and does anything, always the same from one seed: what it does next are lines
/// of a player's script. It never reaches beyond its home.
class Monkey {
public:
    /// `home` is the folder that holds all that it may touch.
    Monkey(std::uint64_t seed, std::filesystem::path home) : dice_(seed), home_(std::move(home)) {}

    /// What it does on the screen in front.
    std::string act(const Screen& screen);
    /// What it answers, going by the transcript's line of a box, input box or dialog.
    std::string answer(std::string_view asked);

private:
    std::string use(const Control& control);
    std::string choose(const ItemList& list);
    std::string pressKey(const Screen& screen);
    std::string anyText();
    const Control& anyControl(const Screen& screen);
    bool isWanted(const Control& control);
    [[nodiscard]] bool isAtHome(std::string_view folder) const;

    sample::Dice dice_;
    std::filesystem::path home_;
};

}  // namespace tallybrook::test

#pragma once

#include "controls/Display.h"

namespace tallybrook {

/// A display that shows no screens: only its boxes, and what fails, are left to be answered.
class QuietDisplay : public Display {
public:
    void loaded(Screen&) override {}
    void shown(Screen&) override {}
    void hidden(Screen&) override {}
    void unloaded(Screen&) override {}
    void raised(Screen&) override {}
    void pointer(Pointer) override {}
    void help(HelpTopic) override {}
    void startViewer(const std::filesystem::path&) override {}
    void ended() override {}
};

}  // namespace tallybrook

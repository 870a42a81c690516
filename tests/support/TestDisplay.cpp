#include "support/TestDisplay.h"

#include "controls/Screen.h"

namespace tallybrook::test {

void TestDisplay::loaded(Screen& screen) {
    events_.push_back("load " + screen.name());
}
void TestDisplay::shown(Screen& screen) {
    events_.push_back("show " + screen.name());
}
void TestDisplay::hidden(Screen& screen) {
    events_.push_back("hide " + screen.name());
}
void TestDisplay::unloaded(Screen& screen) {
    events_.push_back("unload " + screen.name());
}
void TestDisplay::raised(Screen& screen) {
    events_.push_back("raise " + screen.name());
}

}  // namespace tallybrook::test

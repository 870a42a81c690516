#pragma once

#include "support/TemporaryFolder.h"

#include <clocale>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace tallybrook::test {

/// While it lives decimals stand behind a comma for the C library, as in much of the world. The locale is
/// made on the spot, since few machines have one.
class CommaLocale {
public:
    CommaLocale() {
        const std::string made = (folder_.path() / "de_DE.UTF-8").string();
        const bool isMade = std::system(("localedef -i de_DE -f UTF-8 '" + made + "'").c_str()) == 0;
        setenv("LOCPATH", folder_.path().c_str(), 1);
        if (!isMade || std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr)
            throw std::runtime_error("there is no such locale");
    }
    ~CommaLocale() {
        std::setlocale(LC_NUMERIC, "C");
        unsetenv("LOCPATH");
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    TemporaryFolder folder_;
};

}  // namespace tallybrook::test

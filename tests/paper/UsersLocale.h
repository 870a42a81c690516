#pragma once

#include <QByteArray>
#include <array>
#include <map>

namespace tallybrook::test {

/// Lets the environment name these locales as the user's, and no others; with its end all are as before.
class UsersLocale {
public:
    using Variables = std::map<QByteArray, QByteArray>;

    explicit UsersLocale(const Variables& variables) {
        for (const char* const name : kNames) {
            if (qEnvironmentVariableIsSet(name))
                before_[name] = qgetenv(name);
        }
        set(variables);
    }
    ~UsersLocale() { set(before_); }
    UsersLocale(const UsersLocale&) = delete;
    UsersLocale& operator=(const UsersLocale&) = delete;

private:
    static void set(const Variables& variables) {
        for (const char* const name : kNames)
            qunsetenv(name);
        for (const auto& [name, locale] : variables)
            qputenv(name.constData(), locale);
    }

    static constexpr std::array kNames{"LC_ALL", "LC_PAPER", "LANG"};
    Variables before_;
};

}  // namespace tallybrook::test

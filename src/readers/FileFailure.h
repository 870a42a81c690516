#pragma once

#include <QString>
#include <exception>
#include <utility>

namespace tallybrook {

/// A file could not be read or written; the reason is a sentence for the user.
class FileFailure : public std::exception {
public:
    explicit FileFailure(QString reason) : reason_(std::move(reason)), bytes_(reason_.toUtf8()) {}

    [[nodiscard]] const QString& reason() const { return reason_; }
    [[nodiscard]] const char* what() const noexcept override { return bytes_.constData(); }

private:
    QString reason_;
    QByteArray bytes_;
};

}  // namespace tallybrook

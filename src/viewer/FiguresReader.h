#pragma once

#include "readers/ReportFigures.h"

#include <QPointer>
#include <QThread>
#include <functional>

namespace tallybrook {

/// Reads the figures of texts: at once where that takes no time, and behind the window's back otherwise.
class FiguresReader {
public:
    FiguresReader() = default;
    ~FiguresReader();
    FiguresReader(const FiguresReader&) = delete;
    FiguresReader& operator=(const FiguresReader&) = delete;

    /// Called with the figures of the text that was given last.
    std::function<void(ReportFigures figures)> onRead;
    void read(const QString& text);

private:
    void readAside(const QString& text);
    void giveUp();

    QPointer<QThread> thread_;  // of the last text
    QObject here_;              // what threads tell ends with it
};

}  // namespace tallybrook

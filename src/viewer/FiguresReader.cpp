#include "viewer/FiguresReader.h"

#include <memory>
#include <utility>

#include <malloc.h>

namespace tallybrook {

namespace {

/// The figures of such a text are there before anybody sees that they were not.
constexpr qsizetype kReadAtOnce = qsizetype{512} * 1024;

}  // namespace

FiguresReader::~FiguresReader() {
    giveUp();
}

void FiguresReader::read(const QString& text) {
    giveUp();
    if (text.size() > kReadAtOnce) {
        readAside(text);
        return;
    }
    onRead(readFigures(text));
}

/// Nobody waits for the figures of the text before.
void FiguresReader::giveUp() {
    if (thread_)
        thread_->wait();
    thread_.clear();
}

void FiguresReader::readAside(const QString& text) {
    const auto figures = std::make_shared<ReportFigures>();
    QThread* const thread = QThread::create([text, figures] { *figures = readFigures(text); });
    QObject::connect(thread, &QThread::finished, &here_, [this, thread, figures] {
        if (thread == thread_)  // another text may have come meanwhile
            onRead(std::move(*figures));
        malloc_trim(0);  // what the reading took beside them
    });
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread_ = thread;
    thread->start();
}

}  // namespace tallybrook

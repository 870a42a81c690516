#include "player/PlayApplication.h"

#include "app/Application.h"
#include "player/CurrentFolder.h"
#include "player/Places.h"
#include "player/Player.h"

#include <QFile>
#include <QTemporaryDir>
#include <optional>
#include <stdexcept>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

/// The name of a folder that is yet to be made.
QString temporaryName() {
    return QFile::decodeName((fs::temp_directory_path() / "tallybrook-XXXXXX").c_str());
}

fs::path pathOf(const QTemporaryDir& made) {
    if (!made.isValid())
        throw std::runtime_error(temporaryName().toStdString() + ": " + made.errorString().toStdString());
    return QFile::encodeName(made.path()).toStdString();
}

}  // namespace

int playApplication(const Options& options, Stage& stage, std::istream& script, std::ostream& transcript,
                    std::ostream& errors) {
    const CurrentFolder start;
    std::optional<QTemporaryDir> temporary;
    const fs::path data =
        plainPath(options.data ? *options.data : pathOf(temporary.emplace(temporaryName())));

    Player player(script, transcript, stage, Places(data, start.path()), options.clock);
    Application application(player.display(), player.clock(), data);
    return player.play(
        application.program(), [&] { application.start(); }, errors);
}

}  // namespace tallybrook

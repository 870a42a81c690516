#pragma once

#include <QIcon>
#include <functional>

namespace tallybrook {

/// An icon that `make` makes when it is first seen.
QIcon lateIcon(std::function<QIcon()> make);

}  // namespace tallybrook

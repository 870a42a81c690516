#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <QWidget>
#include <string>

// Mouse and keys, as real events on real widgets.
namespace tallybrook::hands {

/// Clicks with the left button of the mouse on what of the widget takes a click.
void click(QWidget& widget);

/// Presses the mouse there and releases it beside the widget, so that the widget takes the focus at most.
void touch(QWidget& widget);

/// Clicks an item, once it is in view.
void clickItem(QAbstractItemView& items, const QModelIndex& item);

/// Opens the list and clicks the item at that position.
void pickFrom(QComboBox& combo, int index);

/// Presses a key that isKey() knows, as in "Alt+N", where the focus of the window is.
void pressKey(QWidget& window, const std::string& key);

/// Types the text in place of all that the widget holds, character by character, as long as the widget lasts.
void typeOver(QWidget& widget, const std::string& text);

}  // namespace tallybrook::hands

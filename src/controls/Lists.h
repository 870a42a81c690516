#pragma once

#include "controls/Control.h"

#include <optional>
#include <string>
#include <vector>

namespace tallybrook {

/// What lists have besides their items.
struct ListOptions {
    std::string tip = {};
    int width = 0;  // in characters, a hint for drawing; 0 for as wide as there is room
    int lines = 6;  // items seen at once where the list is always open
    bool enabled = true;
};

/// Items of which at most one is picked.
class ItemList : public Control {
public:
    using Options = ListOptions;

    [[nodiscard]] const std::vector<std::string>& items() const { return items_; }
    /// The position of the item picked, from 0; nothing where none is.
    [[nodiscard]] std::optional<int> pickedIndex() const { return picked_; }
    /// The item picked; empty text where none is.
    [[nodiscard]] std::string picked() const;
    [[nodiscard]] const Options& options() const { return options_; }

    /// Gives it these items and no others; none is picked.
    void fill(std::vector<std::string> items);
    void add(std::string item) { items_.push_back(std::move(item)); }
    void clear() { fill({}); }

    /// A person picks the item at a position, be it the one picked already: it stays shown, and the click
    /// runs. Error 9 where there is no such item.
    void pick(int index);

protected:
    ItemList(Kind kind, Place place, std::string name, const Options& options);

    /// Shows the item at a position as picked, from code: no click runs.
    void showPicked(std::optional<int> index) { picked_ = index; }

private:
    virtual void afterPick() { click(); }

    Options options_;
    std::vector<std::string> items_;
    std::optional<int> picked_;
};

/// A list that opens when it is used.
class ComboBox : public ItemList {
public:
    ComboBox(Place place, std::string name, const Options& options = {})
        : ItemList(Kind::ComboBox, place, std::move(name), options) {}
};

/// A list that is always open.
class ListBox : public ItemList {
public:
    ListBox(Place place, std::string name, const Options& options = {})
        : ItemList(Kind::ListBox, place, std::move(name), options) {}
};

/// The machine's drives: the places where its mounted volumes begin.
class DriveList : public ItemList {
public:
    DriveList(Place place, std::string name, std::vector<std::string> volumes, const Options& options = {});

    /// Picks the volume that a path lies on, from code. The change does not run.
    void showVolumeOf(const std::string& path);

    std::function<void()> onChange;

private:
    void afterPick() override {
        if (onChange)
            onChange();
    }
};

/// A folder as it stands in a tree: below the one that it lies in, and further in.
struct FolderRow {
    std::string path;
    int depth = 0;         // 0 for the root
    bool isOpen = false;   // the folders in it stand below it
    bool isEmpty = false;  // it was to be opened, and there are no folders in it

    /// What it is called: the last part of its path; the root has the whole.
    [[nodiscard]] std::string name() const;
    friend bool operator==(const FolderRow&, const FolderRow&) = default;
};

/// The folders of the machine as a tree that is open down to one of them, which is the one picked. Its items
/// are full paths: that folder with all above it, and the folders in it. The tree can be open elsewhere as
/// well and has a cursor, since to look for a folder is not to pick it.
class FolderList : public ItemList {
public:
    FolderList(Place place, std::string name, const Options& options = {});

    /// The folder picked.
    [[nodiscard]] const std::string& path() const { return path_; }
    /// Picks a folder from code; error 76 if there is no such folder. The change does not run.
    void setPath(const std::string& path);
    /// A person picks any folder of the machine, by its full path. False if there is no such folder.
    bool pickFolder(const std::string& path);

    /// The tree from top to bottom. Hidden folders are left out, but for those on the way to a folder picked.
    [[nodiscard]] const std::vector<FolderRow>& rows() const { return rows_; }
    /// The row of a folder, from 0; nothing if it does not stand in the tree.
    [[nodiscard]] std::optional<int> rowOf(const std::string& path) const;
    /// The row that the cursor is on, from 0. Each pick puts it on the folder picked.
    [[nodiscard]] int cursor() const { return cursor_; }

    // How a person looks for a folder, which picks nothing. Rows count from 0; error 9 where there is none.

    void moveCursor(int row);
    void open(int row);
    /// Does nothing to a folder that holds the one picked.
    void close(int row);
    /// Opens the tree down to a folder, which the cursor goes to. False if there is no such folder.
    bool reveal(const std::string& path);

    /// Whether a text is the full path of a folder that there is.
    static bool isFolder(const std::string& path);
    /// The full paths of the folders in a folder, in the order of their names; empty for one that cannot be
    /// read. Hidden folders are left out.
    static std::vector<std::string> foldersIn(const std::string& path);

    std::function<void()> onChange;

private:
    void afterPick() override;
    void openAt(const std::string& path);
    int openDownTo(const std::vector<std::string>& way);
    int rowBelow(int above, const std::string& path);
    [[nodiscard]] int endOf(int row) const;
    [[nodiscard]] const FolderRow& at(int row) const;

    std::string path_;
    std::vector<FolderRow> rows_;
    int cursor_ = 0;
};

}  // namespace tallybrook

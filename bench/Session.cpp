#include "Session.h"

#include "controls/Lists.h"
#include "controls/Person.h"
#include "controls/Screen.h"
#include "shell/TBK_Globals.h"
#include "store/file/Connection.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <vector>

#include <benchmark/benchmark.h>

namespace tallybrook::bench {

namespace fs = std::filesystem;

namespace {

/// A click or typing that was on its way happens unless the focus was kept where it was.
void require(Arrival arrival, const std::string& control) {
    if (arrival == Arrival::Kept || arrival == Arrival::Refused)
        throw std::runtime_error("the focus did not come to " + control);
}

/// Backups as large as the logbook would soon fill the disk.
void removeBackupsButOne(const fs::path& folder) {
    std::vector<fs::path> files;
    if (fs::exists(folder))
        files.assign(fs::directory_iterator(folder), {});
    std::ranges::sort(files);
    for (std::size_t i = 0; i + 1 < files.size(); ++i)
        fs::remove(files[i]);
}

/// People start the program on a logbook of another day. The backup of one that was written a moment ago
/// could not be known again, and another one would be made on the way.
void makeOld(const fs::path& logbook) {
    const auto now = fs::file_time_type::clock::now();
    if (fs::exists(logbook) && now - fs::last_write_time(logbook) < std::chrono::minutes{1})
        fs::last_write_time(logbook, now - std::chrono::hours{1});
}

}  // namespace

Session::Session(const fs::path& dataFolder, AtStart atStart) : application_(display, clock_, dataFolder) {
    removeBackupsButOne(dataFolder / "Backups");
    makeOld(dataFolder / "Tallybrook_DB.mdb");
    application_.start();
    if (atStart == AtStart::AwaitBackup)
        program().backups().finish();
}

sqlite3* Session::connection() {
    return program().store().connection().database().getHandle();
}

Control& Session::control(const std::string& name) {
    Control* const found = screen().find(name);
    if (found == nullptr)
        throw std::runtime_error("no control " + name + " on " + screen().name());
    return *found;
}

void Session::click(const std::string& name) {
    perform([&] { require(person::click(control(name)), name); });
}

void Session::measuredClick(const std::string& name) {
    click(name);
}

void Session::type(const std::string& name, const std::string& text) {
    perform([&] { require(person::type(dynamic_cast<TextBox&>(control(name)), text), name); });
}

void Session::pick(const std::string& name, const std::string& item) {
    auto& list = dynamic_cast<ComboBox&>(control(name));
    const auto found = std::ranges::find(list.items(), item);
    if (found == list.items().end())
        throw std::runtime_error("no item " + item + " in " + name);
    const auto index = static_cast<int>(found - list.items().begin());
    perform([&] { require(person::pick(list, index), name); });
}

void Session::selectRow(int row) {
    perform([&] { require(person::selectRow(grid(), row), "the list"); });
}

void Session::drawList() {
    constexpr int kRowsInSight = 40;
    if (list().rowCount() == 0)
        throw std::runtime_error("an empty list");
    for (int row = 1; row <= std::min(list().rowCount(), kRowsInSight); ++row) {
        for (int column = 0; column < static_cast<int>(list().columns().size()); ++column)
            benchmark::DoNotOptimize(list().cell(row, column));
    }
}

void Session::handOverTo(const std::string& name) {
    perform([&] {
        program().screens.hide(screen());
        program().screens.load(name);
    });
}

void Session::prepareSearch(const SearchScreen& search, const Criterion& criterion) {
    state().gMode = kReport;
    handOverTo(search.name);
    pick(search.fields, criterion.field);
    pick("cboSearchOp(0)", criterion.comparison);
    type("txtSearchVal(0)", criterion.value);
}

void Session::returnToMain() {
    perform([this] { tallybrook::returnToMain(program()); });
}

}  // namespace tallybrook::bench

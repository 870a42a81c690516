#pragma once

#include "store/Recordset.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tallybrook {

/// A screen's data control: a record source, the recordset opened on it, and the boxes bound to its current
/// row.
class DataControl {
public:
    explicit DataControl(Store& store) : store_(store) {}

    /// Takes effect with the next Refresh().
    void setRecordSource(std::string sql) { recordSource_ = std::move(sql); }
    [[nodiscard]] const std::string& RecordSource() const { return recordSource_; }

    /// Closes the recordset and opens it anew on the record source. If that fails the control has no
    /// recordset.
    void Refresh();

    /// The open recordset; error 91 where there is none.
    [[nodiscard]] Recordset& recordset();

    /// Calls `refreshed` with each Refresh(), once the rows shown before are gone.
    void onRefresh(std::function<void()> refreshed) { refreshed_ = std::move(refreshed); }

    /// Drops the recordset: what becomes of it when its screen is unloaded.
    void drop() { recordset_.reset(); }

    /// Lets `show` have the text of `field` whenever the row shown changes; empty text with no current row.
    void bind(std::string field, std::function<void(const std::string& text)> show);

private:
    struct Binding {
        std::string field;
        std::function<void(const std::string&)> show;
    };
    void showRow();

    Store& store_;
    std::string recordSource_;
    std::unique_ptr<Recordset> recordset_;
    std::vector<Binding> bindings_;
    std::function<void()> refreshed_;
};

}  // namespace tallybrook

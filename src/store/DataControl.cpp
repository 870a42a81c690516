#include "store/DataControl.h"

#include <utility>

namespace tallybrook {

void DataControl::Refresh() {
    recordset_.reset();
    if (refreshed_)
        refreshed_();
    auto opened = std::make_unique<Recordset>(store_);
    opened->Open(recordSource_);
    opened->onRowShown([this] { showRow(); });
    recordset_ = std::move(opened);
    showRow();
}

Recordset& DataControl::recordset() {
    if (!recordset_)
        throw RunTimeError(error::kObjectNotSet);
    return *recordset_;
}

void DataControl::bind(std::string field, std::function<void(const std::string&)> show) {
    bindings_.push_back({std::move(field), std::move(show)});
}

void DataControl::showRow() {
    for (const Binding& binding : bindings_) {
        if (!recordset_)
            return;  // what the last box did has unloaded the screen
        std::string text;
        try {
            text = toText((*recordset_)[binding.field]);
        } catch (const RunTimeError& failure) {
            if (failure.number() != error::kNoCurrentRow)
                throw;
        }
        binding.show(text);
    }
}

}  // namespace tallybrook

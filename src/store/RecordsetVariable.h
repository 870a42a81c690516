#pragma once

#include "store/Recordset.h"

#include <memory>
#include <string>

namespace tallybrook {

/// A variable that several procedures share, which holds a recordset or nothing.
class RecordsetVariable {
public:
    /// Puts a new, closed recordset into the variable.
    void create(Store& store) { recordset_ = std::make_unique<Recordset>(store); }
    void setToNothing() { recordset_.reset(); }

    /// The recordset; error 91 where the variable holds nothing.
    Recordset& operator*() const {
        if (!recordset_)
            throw RunTimeError(error::kObjectNotSet);
        return *recordset_;
    }
    Recordset* operator->() const { return &**this; }

private:
    std::unique_ptr<Recordset> recordset_;
};

/// Opens the recordset on a statement, calls `visit` with each row current in turn, and closes it. `visit`
/// may set the variable to nothing, which then fails with error 91.
template <typename Visit>
void forEachRow(const RecordsetVariable& rows, const std::string& sql, Visit visit) {
    rows->Open(sql);
    if (rows->RecordCount() > 0) {
        for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
            visit();
    }
    rows->Close();
}

}  // namespace tallybrook

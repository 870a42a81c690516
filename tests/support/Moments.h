#pragma once

#include "support/TemporaryFolder.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace tallybrook::test {

/// What a program that is killed leaves in a folder, for each call that it can be killed before: copies that
/// are made while it lives. The system keeps what has been written, so a kill leaves what others see of the
/// files in that moment.
class Moments {
public:
    /// Acts, and copies the folder before each call of this thread that changes files. Other threads do at
    /// most the call that they have begun while it is copied.
    void keep(const std::filesystem::path& folder, const std::function<void()>& act);

    [[nodiscard]] std::size_t size() const { return copies_.size(); }
    /// The copy that was made before that call, from 0.
    [[nodiscard]] const std::filesystem::path& operator[](std::size_t call) const;

private:
    std::vector<std::unique_ptr<TemporaryFolder>> copies_;
};

/// Lets a child process act, and kills it before that one of its first thread's calls that change files, from
/// 0.
void killBefore(std::size_t call, const std::function<void()>& act);

}  // namespace tallybrook::test

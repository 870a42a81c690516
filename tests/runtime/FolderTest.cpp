#include "runtime/Folder.h"
#include "support/FailingAllocation.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <fstream>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

using Names = std::vector<std::string>;

Names sorted(Names names) {
    std::ranges::sort(names);
    return names;
}

TEST(Folder, NamesAllThatIsInIt) {
    const TemporaryFolder folder;
    EXPECT_EQ(namesIn(folder.path()), Names{});
    for (const char* const name : {".hidden", "a b", "\xff"})
        std::ofstream(folder.path() / name) << "";
    std::filesystem::create_directory(folder.path() / "folder");
    EXPECT_EQ(sorted(namesIn(folder.path())), (Names{".hidden", "a b", "folder", "\xff"}));
}

TEST(Folder, NamesNothingWhereItCannotBeRead) {
    EXPECT_EQ(namesIn("/nowhere"), Names{});
}

// The listing of the standard library ends the program.
TEST(Folder, RaisesAnErrorWhereMemoryIsShort) {
    const TemporaryFolder folder;
    std::ofstream(folder.path() / "a name that is too long to stand in a text without any memory") << "";
    EXPECT_GE(failuresOfEachAllocation([&] { namesIn(folder.path()); }), 1);
}

}  // namespace

}  // namespace tallybrook::test

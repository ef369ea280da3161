#include "platform/win/find.h"

#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/testing/sandbox.h"
#include "platform/win/last_error.h"

namespace win {
namespace {

namespace fs = std::filesystem;
using velorand::testing::SandboxTest;

struct Found {
    std::vector<std::string> names;
    std::vector<std::string> folders;
};

// Every entry of a search, names in the order found, with the folders among them.
Found FindAll(const std::string& pattern) {
    Found found;
    _finddata_t data;
    std::intptr_t handle = _findfirst(pattern.c_str(), &data);
    if (handle == -1)
        return found;
    do {
        found.names.push_back(data.name);
        if (data.attrib & _A_SUBDIR)
            found.folders.push_back(data.name);
    } while (_findnext(handle, &data) == 0);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(GetLastError(), ERROR_NO_MORE_FILES);
    EXPECT_EQ(_findclose(handle), 0);
    return found;
}

using Names = std::vector<std::string>;
using WildcardTest = SandboxTest;

TEST_F(WildcardTest, FollowsThePlatformsRules) {
    EXPECT_TRUE(MatchesWildcard("*.*", "a.sch"));
    EXPECT_TRUE(MatchesWildcard("*.*", "README"));
    EXPECT_TRUE(MatchesWildcard("*", "a.b.c"));
    EXPECT_TRUE(MatchesWildcard("amp.*", "AMP.log"));
    EXPECT_TRUE(MatchesWildcard("amp.*", "amp"));
    EXPECT_FALSE(MatchesWildcard("amp.*", "amp2.log"));
    EXPECT_FALSE(MatchesWildcard("amp.*", "am"));
    EXPECT_TRUE(MatchesWildcard("*.vpj", "x.VPJ"));
    EXPECT_FALSE(MatchesWildcard("*.vpj", "x.vpjx"));
    EXPECT_FALSE(MatchesWildcard("*.vpj", "vpj"));
    EXPECT_TRUE(MatchesWildcard("a?c.sch", "abc.sch"));
    EXPECT_FALSE(MatchesWildcard("a?c.sch", "ac.sch"));
    EXPECT_TRUE(MatchesWildcard("*a*b", "xxaxxbxb"));
    EXPECT_FALSE(MatchesWildcard("*a*b", "xxaxxbx"));
    EXPECT_TRUE(MatchesWildcard("caf\xe9.*", "caf\xe9.sch"));
    EXPECT_FALSE(MatchesWildcard("caf\xe9.*", "caf\xc9.sch"));
}

using FindTest = SandboxTest;

TEST_F(FindTest, ListsMatchingEntriesInAFixedOrder) {
    for (const char* name : {"b.sch", "A.sch", "amp.log", "amp", "c.SCH", "notes"})
        sandbox.Write(std::string("p/") + name, "");
    fs::create_directories(sandbox.Posix("p/Sub.sch"));

    Found all = FindAll("C:\\p\\*.*");
    EXPECT_EQ(all.names,
              (Names{".", "..", "A.sch", "amp", "amp.log", "b.sch", "c.SCH", "notes", "Sub.sch"}));
    EXPECT_EQ(all.folders, (Names{".", "..", "Sub.sch"}));
    EXPECT_EQ(FindAll("C:\\P\\*.sch").names, (Names{"A.sch", "b.sch", "c.SCH", "Sub.sch"}));
    EXPECT_EQ(FindAll("c:/p/AMP.*").names, (Names{"amp", "amp.log"}));
    EXPECT_EQ(FindAll("C:\\p\\?.sch").names, (Names{"A.sch", "b.sch", "c.SCH"}));
    // A name without wildcards finds the entry itself, whatever its letter case.
    EXPECT_EQ(FindAll("C:\\p\\sub.SCH").folders, (Names{"Sub.sch"}));
    // A drive's root has no "." and "..".
    EXPECT_EQ(FindAll("C:\\*").names, (Names{"p"}));
}

TEST_F(FindTest, ReportsSizeAndReadOnlyAttribute) {
    sandbox.Write("a.sch", "12345");
    fs::permissions(sandbox.Posix("a.sch"), fs::perms::owner_read, fs::perm_options::replace);
    _finddata_t data;
    std::intptr_t handle = _findfirst("C:\\a.sch", &data);
    ASSERT_NE(handle, -1);
    EXPECT_EQ(data.size, 5u);
    EXPECT_EQ(data.attrib, _A_RDONLY);
    EXPECT_EQ(std::string(data.name), "a.sch");
    EXPECT_EQ(_findclose(handle), 0);
    EXPECT_EQ(_findclose(handle), -1);
    EXPECT_EQ(_findnext(handle, &data), -1);
}

TEST_F(FindTest, FailsWithThePlatformsCodes) {
    sandbox.Write("p/a.sch", "");
    _finddata_t data;
    EXPECT_EQ(_findfirst("C:\\p\\*.vpj", &data), -1);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(_findfirst("C:\\missing\\*.*", &data), -1);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(_findfirst("C:\\p\\a|b*", &data), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(GetLastError(), ERROR_BAD_PATHNAME);
    EXPECT_EQ(_findfirst(("C:\\p\\" + std::string(260, 'a') + "*").c_str(), &data), -1);
    EXPECT_EQ(GetLastError(), ERROR_BAD_PATHNAME);
}

}  // namespace
}  // namespace win

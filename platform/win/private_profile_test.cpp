#include "platform/win/private_profile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "platform/testing/sandbox.h"
#include "platform/win/last_error.h"

namespace win {
namespace {

namespace fs = std::filesystem;
using velorand::testing::ReadFile;
using velorand::testing::SandboxTest;

class PrivateProfileTest : public SandboxTest {
  protected:
    // Writes the file and gives its platform path.
    std::string File(const std::string& text, const std::string& name = "p.ini") {
        sandbox.Write(name, text);
        return sandbox.Platform(name);
    }

    std::string Get(const std::string& file, const char* section, const char* key,
                    const char* defaultValue = "def") {
        char buffer[600];
        DWORD n = GetPrivateProfileString(section, key, defaultValue, buffer, sizeof buffer,
                                          file.c_str());
        return std::string(buffer, n);
    }

    // Writes and gives the file's bytes afterwards.
    std::string Write(const std::string& file, const char* section, const char* key,
                      const char* value) {
        EXPECT_TRUE(WritePrivateProfileString(section, key, value, file.c_str()));
        return ReadFile(sandbox.Posix("p.ini"));
    }

    // Gives the file a time stamp long past, so that it counts as settled.
    void SetModified(const std::string& name, long nanoseconds = 0) {
        timespec times[2];
        times[0].tv_sec = 1700000000;
        times[0].tv_nsec = nanoseconds;
        times[1] = times[0];
        ASSERT_EQ(utimensat(AT_FDCWD, sandbox.Posix(name).c_str(), times, 0), 0);
    }
};

TEST_F(PrivateProfileTest, ReadsValuesAsThePlatformDoes) {
    std::string file = File(
        "[Project]\r\n"
        "  ProjectID =  amp  \r\n"
        "Quoted=\"  spaced  \"\r\n"
        "Single='x'\r\n"
        "Half=\"x\r\n"
        "Empty=\r\n"
        "[ Search Paths ]\n"
        "SearchPath0=C:\\lib\n");
    EXPECT_EQ(Get(file, "project", "PROJECTID"), "amp");
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    EXPECT_EQ(Get(file, "Project", "Quoted"), "  spaced  ");
    EXPECT_EQ(Get(file, "Project", "Single"), "x");
    EXPECT_EQ(Get(file, "Project", "Half"), "\"x");
    EXPECT_EQ(Get(file, "Project", "Empty"), "");
    EXPECT_EQ(Get(file, "search paths", "searchpath0"), "C:\\lib");
}

TEST_F(PrivateProfileTest, MissingFileSectionOrKeyGivesTheDefaultWithoutTrailingBlanks) {
    std::string file = File("[A]\nk=v\n");
    EXPECT_EQ(Get(file, "A", "other", "  d  "), "  d");
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Get(file, "B", "k"), "def");
    EXPECT_EQ(Get(file, "A", "k", nullptr), "v");
    EXPECT_EQ(Get(file, "A", "x", nullptr), "");
    EXPECT_EQ(Get(sandbox.Platform("none.ini"), "A", "k"), "def");
    EXPECT_EQ(Get(sandbox.Platform("no\\folder.ini"), "A", "k"), "def");
    EXPECT_EQ(Get("Q:\\bad.ini", "A", "k"), "def");
    EXPECT_EQ(GetLastError(), ERROR_BAD_PATHNAME);
}

TEST_F(PrivateProfileTest, FirstOfDuplicateSectionsAndKeysCounts) {
    std::string file = File(
        "orphan=before any section\n"
        "[A]\nk=first\nK=second\n"
        "[a]\nk=third\nonly=in second\n");
    EXPECT_EQ(Get(file, "A", "k"), "first");
    EXPECT_EQ(Get(file, "A", "only"), "def");
    EXPECT_EQ(Get(file, "A", "orphan"), "def");
}

TEST_F(PrivateProfileTest, OddBytesAndLongLinesAreReadSafely) {
    std::string longValue(100000, 'x');
    std::string text = "[A]\nbin=\x01\xff\xfe\n";
    text += std::string("nul=ab\0cd\n", 10);
    text += "long=" + longValue + "\n";
    text += "no equals sign\n[B\nk=unclosed head\n";
    text += "[C]\nlast=no line end";
    std::string file = File(text);
    EXPECT_EQ(Get(file, "A", "bin"), "\x01\xff\xfe");
    EXPECT_EQ(Get(file, "A", "nul"), "ab");
    EXPECT_EQ(Get(file, "A", "long"), longValue.substr(0, 599));
    EXPECT_EQ(Get(file, "B", "k"), "unclosed head");
    EXPECT_EQ(Get(file, "C", "last"), "no line end");
}

TEST_F(PrivateProfileTest, BuffersTooSmallCutValuesAndLists) {
    std::string file = File("[Alpha]\nkey=0123456789\nsecond=2\n[Beta]\n[Gamma]\n");
    char buffer[16];

    EXPECT_EQ(GetPrivateProfileString("Alpha", "key", "", buffer, 5, file.c_str()), 4u);
    EXPECT_EQ(std::string(buffer), "0123");
    EXPECT_EQ(GetLastError(), ERROR_MORE_DATA);
    EXPECT_EQ(GetPrivateProfileString("Alpha", "key", "", buffer, 11, file.c_str()), 10u);
    EXPECT_EQ(GetPrivateProfileString("Alpha", "key", "", buffer, 0, file.c_str()), 0u);

    // Names, each ended by a NUL, the list by a second one.
    EXPECT_EQ(GetPrivateProfileString(nullptr, nullptr, "", buffer, 16, file.c_str()), 14u);
    EXPECT_EQ(std::string(buffer, 16), std::string("Alpha\0Beta\0Gam\0\0", 16));
    EXPECT_EQ(GetPrivateProfileString(nullptr, nullptr, "", buffer, 8, file.c_str()), 6u);
    EXPECT_EQ(std::string(buffer, 8), std::string("Alpha\0\0\0", 8));
    EXPECT_EQ(GetLastError(), ERROR_MORE_DATA);

    char whole[64];
    EXPECT_EQ(GetPrivateProfileString(nullptr, "ignored", "", whole, 64, file.c_str()), 17u);
    EXPECT_EQ(std::string(whole, 18), std::string("Alpha\0Beta\0Gamma\0\0", 18));
    EXPECT_EQ(GetPrivateProfileString("ALPHA", nullptr, "", whole, 64, file.c_str()), 11u);
    EXPECT_EQ(std::string(whole, 12), std::string("key\0second\0\0", 12));
    EXPECT_EQ(GetPrivateProfileString("Beta", nullptr, "", whole, 64, file.c_str()), 0u);
    EXPECT_EQ(std::string(whole, 2), std::string("\0\0", 2));
    EXPECT_EQ(GetPrivateProfileString("Alpha", nullptr, "", buffer, 6, file.c_str()), 4u);
    EXPECT_EQ(std::string(buffer, 6), std::string("key\0\0\0", 6));
}

TEST_F(PrivateProfileTest, SectionListsItsLines) {
    std::string file = File(
        "[Project]\nx=1\n"
        "[MRU List]\r\n"
        "C:\\a.sch = 0,1,2 \r\n"
        "\r\n"
        "odd line\r\n"
        "C:\\b.sch=3\r\n"
        "[Next]\nnot=this\n");
    char buffer[12800];
    DWORD n = GetPrivateProfileSection("mru list", buffer, sizeof buffer, file.c_str());
    EXPECT_EQ(std::string(buffer, n + 1),
              std::string("C:\\a.sch=0,1,2\0odd line\0C:\\b.sch=3\0\0", 36));

    EXPECT_EQ(GetPrivateProfileSection("MRU List", buffer, 12, file.c_str()), 10u);
    EXPECT_EQ(std::string(buffer, 12), std::string("C:\\a.sch=0\0\0", 12));
    EXPECT_EQ(GetPrivateProfileSection("None", buffer, 12, file.c_str()), 0u);
    EXPECT_EQ(std::string(buffer, 2), std::string("\0\0", 2));
}

TEST_F(PrivateProfileTest, IntegersFromValues) {
    std::string file = File("[S]\na=42\nb=-7\nc=55zz\nd=0x1F\ne=word\nf=\ng=\"12\"\n");
    const char* name = file.c_str();
    EXPECT_EQ(GetPrivateProfileInt("S", "a", 9, name), 42u);
    EXPECT_EQ(static_cast<int>(GetPrivateProfileInt("S", "b", 9, name)), -7);
    EXPECT_EQ(GetPrivateProfileInt("S", "c", 9, name), 55u);
    EXPECT_EQ(GetPrivateProfileInt("S", "d", 9, name), 31u);
    EXPECT_EQ(GetPrivateProfileInt("S", "e", 9, name), 0u);
    EXPECT_EQ(GetPrivateProfileInt("S", "f", 9, name), 9u);
    EXPECT_EQ(GetPrivateProfileInt("S", "g", 9, name), 12u);
    EXPECT_EQ(GetPrivateProfileInt("S", "missing", 9, name), 9u);
    EXPECT_EQ(static_cast<int>(GetPrivateProfileInt("S", "missing", -1, name)), -1);
}

TEST_F(PrivateProfileTest, ExistingKeyGetsItsNewValueInPlace) {
    std::string file = File("[Project]\r\n  ProjectID = old \r\nLocation=C:\\x\\\r\n\r\n[B]\n");
    EXPECT_EQ(Write(file, "PROJECT", "projectid", "new"),
              "[Project]\r\nProjectID=new\r\nLocation=C:\\x\\\r\n\r\n[B]\n");
    EXPECT_EQ(Write(file, "Project", "Location", " C:\\y\\"),
              "[Project]\r\nProjectID=new\r\nLocation= C:\\y\\\r\n\r\n[B]\n");
    EXPECT_EQ(Get(file, "Project", "Location"), "C:\\y\\");
}

TEST_F(PrivateProfileTest, NewKeyGoesAfterTheLastLineOfItsSection) {
    std::string file = File("[Project]\nProjectID=a\n\n[Search Paths]\n\n[Setting]\n\n");
    EXPECT_EQ(Write(file, "Search Paths", "SearchPath0", "C:\\lib"),
              "[Project]\nProjectID=a\n\n[Search Paths]\nSearchPath0=C:\\lib\n\n[Setting]\n\n");
    EXPECT_EQ(Write(file, "project", "Simulator", "2"),
              "[Project]\nProjectID=a\nSimulator=2\n\n[Search Paths]\nSearchPath0=C:\\lib\n\n"
              "[Setting]\n\n");

    File("[A]\nk=1");
    EXPECT_EQ(Write(file, "A", "n", "2"), "[A]\nk=1\nn=2\n");
}

TEST_F(PrivateProfileTest, NewSectionGoesToTheEndOfTheFile) {
    std::string file = File("[Project]\r\nProjectID=a\r\n\r\n");
    EXPECT_EQ(Write(file, "MRU List", "C:\\a.sch", "0,1"),
              "[Project]\r\nProjectID=a\r\n\r\n[MRU List]\nC:\\a.sch=0,1\n");

    File("[Project]\nx=1");
    EXPECT_EQ(Write(file, "PdfFiles", "PdfFiles0", "C:\\d.pdf"),
              "[Project]\nx=1\n[PdfFiles]\nPdfFiles0=C:\\d.pdf\n");
}

TEST_F(PrivateProfileTest, NullValueRemovesKeyAndNullKeyRemovesSection) {
    std::string file = File(
        "[Project]\nFatalPath=C:\\w\\\nLocation=C:\\\n\n"
        "[MRU List]\nC:\\a.sch=0\n\n"
        "[PdfFiles]\nPdfFiles0=x\n"
        "[mru list]\nC:\\b.sch=1\n");
    EXPECT_EQ(Write(file, "project", "FATALPATH", nullptr),
              "[Project]\nLocation=C:\\\n\n"
              "[MRU List]\nC:\\a.sch=0\n\n[PdfFiles]\nPdfFiles0=x\n[mru list]\nC:\\b.sch=1\n");
    EXPECT_EQ(Write(file, "MRU List", nullptr, nullptr),
              "[Project]\nLocation=C:\\\n\n[PdfFiles]\nPdfFiles0=x\n");
    EXPECT_EQ(Write(file, "MRU List", "C:\\c.sch", "2"),
              "[Project]\nLocation=C:\\\n\n[PdfFiles]\nPdfFiles0=x\n[MRU List]\nC:\\c.sch=2\n");
    // Removing what isn't there changes nothing.
    EXPECT_EQ(Write(file, "None", nullptr, nullptr),
              "[Project]\nLocation=C:\\\n\n[PdfFiles]\nPdfFiles0=x\n[MRU List]\nC:\\c.sch=2\n");
    EXPECT_EQ(Write(file, "Project", "None", nullptr),
              "[Project]\nLocation=C:\\\n\n[PdfFiles]\nPdfFiles0=x\n[MRU List]\nC:\\c.sch=2\n");
}

TEST_F(PrivateProfileTest, WritesKeepEveryOtherByte) {
    std::string text = std::string("junk before\r\n[A]\r\n; not a comment \x01\xff\r\n", 38) +
                       std::string("nul=a\0b\r\n", 9) + "\r\n   \n[B]\nk=1\n";
    std::string file = File(text);
    std::string after = Write(file, "B", "k", "2");
    EXPECT_EQ(after, text.substr(0, text.size() - 2) + "2\n");
    EXPECT_EQ(Write(file, "A", "new", "v"),
              std::string("junk before\r\n[A]\r\n; not a comment \x01\xff\r\n", 38) +
                  std::string("nul=a\0b\r\nnew=v\n", 15) + "\r\n   \n[B]\nk=2\n");
}

TEST_F(PrivateProfileTest, WriteCreatesAMissingFileButNotItsFolder) {
    std::string file = sandbox.Platform("p.ini");
    EXPECT_EQ(Write(file, "Project", "ProjectID", "amp"), "[Project]\nProjectID=amp\n");

    std::string deep = sandbox.Platform("missing\\p.ini");
    EXPECT_FALSE(WritePrivateProfileString("A", "k", "v", deep.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(fs::exists(sandbox.Posix("missing")));
}

TEST_F(PrivateProfileTest, ReadOnlyFileOrFolderFailsAndLosesNothing) {
    const std::string text = "[A]\nk=1\n";
    std::string file = File(text);
    fs::permissions(sandbox.Posix("p.ini"), fs::perms::owner_read | fs::perms::group_read);
    EXPECT_FALSE(WritePrivateProfileString("A", "k", "2", file.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(WritePrivateProfileString("A", nullptr, nullptr, file.c_str()));
    EXPECT_EQ(ReadFile(sandbox.Posix("p.ini")), text);
    EXPECT_EQ(Get(file, "A", "k"), "1");

    std::string inFolder = File(text, "ro/p.ini");
    fs::permissions(sandbox.Posix("ro"), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_FALSE(WritePrivateProfileString("A", "k", "2", inFolder.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(WritePrivateProfileString("B", "k", "2", sandbox.Platform("ro\\new.ini").c_str()));
    EXPECT_EQ(ReadFile(sandbox.Posix("ro/p.ini")), text);
    EXPECT_EQ(fs::directory_iterator(sandbox.Posix("ro"))->path().filename(), "p.ini");
}

TEST_F(PrivateProfileTest, RewriteKeepsTheModeAndFollowsALink) {
    std::string file = File("[A]\nk=1\n", "real.ini");
    fs::permissions(sandbox.Posix("real.ini"), fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(sandbox.Posix("real.ini"), sandbox.Posix("link.ini"));
    std::string link = sandbox.Platform("link.ini");
    EXPECT_TRUE(WritePrivateProfileString("A", "k", "2", link.c_str()));
    EXPECT_TRUE(fs::is_symlink(sandbox.Posix("link.ini")));
    EXPECT_EQ(ReadFile(sandbox.Posix("real.ini")), "[A]\nk=2\n");
    EXPECT_EQ(fs::status(sandbox.Posix("real.ini")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(PrivateProfileTest, ValuesWithLineEndsAreRefused) {
    std::string file = File("[A]\nk=1\n");
    EXPECT_FALSE(WritePrivateProfileString("A", "k", "1\n[B]", file.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(WritePrivateProfileString(nullptr, "k", "v", file.c_str()));
    EXPECT_EQ(ReadFile(sandbox.Posix("p.ini")), "[A]\nk=1\n");
}

TEST_F(PrivateProfileTest, NameWithoutFolderLivesBesideTheApplicationsProfile) {
    fs::path folder = sandbox.Root() / "config";
    EXPECT_TRUE(WritePrivateProfileString("S", "k", "v", "suite.ini"));
    EXPECT_EQ(ReadFile(folder / "suite.ini"), "[S]\nk=v\n");
    char buffer[16];
    EXPECT_EQ(GetPrivateProfileString("S", "k", "", buffer, 16, "suite.ini"), 1u);

    // The folder is made at the first write.
    setenv("VELORAND_PROFILE", (sandbox.Root() / "fresh" / "velorand.ini").c_str(), 1);
    EXPECT_TRUE(WritePrivateProfileString("S", "k", "v", "suite.ini"));
    EXPECT_EQ(ReadFile(sandbox.Root() / "fresh" / "suite.ini"), "[S]\nk=v\n");
}

TEST_F(PrivateProfileTest, FileChangedBehindTheCacheIsReadAnew) {
    std::string file = File("[A]\nk=one\n");
    EXPECT_EQ(Get(file, "A", "k"), "one");
    // At once, within the clock tick of the read, and with the same size.
    velorand::testing::WriteFile(sandbox.Posix("p.ini"), "[A]\nk=two\n");
    EXPECT_EQ(Get(file, "A", "k"), "two");

    // Another file renamed into its place, with the same size and time stamp.
    SetModified("p.ini");
    EXPECT_EQ(Get(file, "A", "k"), "two");
    sandbox.Write("other.ini", "[A]\nk=six\n");
    SetModified("other.ini");
    fs::rename(sandbox.Posix("other.ini"), sandbox.Posix("p.ini"));
    EXPECT_EQ(Get(file, "A", "k"), "six");

    fs::remove(sandbox.Posix("p.ini"));
    EXPECT_EQ(Get(file, "A", "k"), "def");
}

TEST_F(PrivateProfileTest, WriteIsSeenByTheNextRead) {
    std::string file = File("[A]\nk=1\n");
    SetModified("p.ini");
    EXPECT_EQ(Get(file, "A", "k"), "1");
    EXPECT_TRUE(WritePrivateProfileString("A", "k", "2", file.c_str()));
    EXPECT_EQ(Get(file, "A", "k"), "2");
    EXPECT_TRUE(WritePrivateProfileString("A", nullptr, nullptr, file.c_str()));
    EXPECT_EQ(Get(file, "A", "k"), "def");
}

TEST_F(PrivateProfileTest, NamesInOtherCaseFindTheFile) {
    File("[A]\nk=v\n", "Proj/Amp.vpj");
    EXPECT_EQ(Get(sandbox.Platform("PROJ\\amp.VPJ"), "A", "k"), "v");
    // A file made later with the exact name takes over from the other case.
    File("[A]\nk=exact\n", "PROJ/amp.VPJ");
    EXPECT_EQ(Get(sandbox.Platform("PROJ\\amp.VPJ"), "A", "k"), "exact");
    // And when the exact name goes, the other case is found again.
    fs::remove_all(sandbox.Posix("PROJ"));
    EXPECT_EQ(Get(sandbox.Platform("PROJ\\amp.VPJ"), "A", "k"), "v");
}

}  // namespace
}  // namespace win

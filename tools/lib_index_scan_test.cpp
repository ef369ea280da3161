#include <gmock/gmock.h>

#include "tools/testing/toolchain_fixture.h"

namespace velorand {
namespace {

using testing::ToolchainTest;

class LibIndexScanTest : public ToolchainTest {
  protected:
    // A record for a schematic of the given text.
    void Schematic(const std::string& name, const std::string& text) {
        std::string file = "amp2/" + name + ".sch";
        sandbox.Write(file, text);
        doc->schematics[name].path = sandbox.Platform(file);
    }
};

TEST_F(LibIndexScanTest, TheExampleHandsOutNumbersAfterItsHighest) {
    ASSERT_EQ(doc->UpdateTree(), 1);
    doc->ScanLibIndexes();
    EXPECT_EQ(doc->lastLibIndex, 13);
    EXPECT_EQ(doc->NextLibIndex(), 14);
    EXPECT_EQ(doc->NextLibIndex(), 15);
}

TEST_F(LibIndexScanTest, NumbersAreReadAsTheCLibraryReadsThem) {
    Schematic("a", "use CAP C_lib007 a b\nuse RES R_libX a b\n");
    Schematic("b", "x_lib 12 and _lib-40 and _lib+3\n");
    Schematic("c", std::string("_lib5\0_lib99\n", 13));
    doc->schematics["c"].symbols.push_back(sandbox.Platform("amp2/a.sch"));
    doc->schematics["d"].path = "C:\\amp2\\missing.sch";
    doc->ScanLibIndexes();
    EXPECT_EQ(doc->lastLibIndex, 12);
}

TEST_F(LibIndexScanTest, WithoutLibraryNamesTheFirstNumberIsOne) {
    Schematic("a", "[schematic2]\nver 40\n_LIB77 lib88\n");
    doc->ScanLibIndexes();
    EXPECT_EQ(doc->NextLibIndex(), 1);
}

TEST_F(LibIndexScanTest, ASecondScanNeverLowersTheNumber) {
    Schematic("a", "C_lib30\n");
    doc->ScanLibIndexes();
    Schematic("a", "C_lib3\n");
    doc->ScanLibIndexes();
    EXPECT_EQ(doc->lastLibIndex, 30);
}

}  // namespace
}  // namespace velorand

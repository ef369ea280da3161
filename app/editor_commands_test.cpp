#include "app/editor_commands.h"

#include <gtest/gtest.h>

#include "app/schematic_document.h"
#include "app/schematic_view.h"
#include "app/testing/host_fixture.h"
#include "platform/win/current_directory.h"

namespace velorand::host {
namespace {

constexpr char kSheet[] =
    "[schematic2]\nver 40\n\n[tools]\n[detail]\n[cell use]\nuse PORT P1 in Z=50\n"
    "use MLIN TL1 in out W=10 L=100\nuse PORT P2 out Z=50\n[comments]\n";

class EditorCommandsTest : public testing::HostTest {
  protected:
    void SetUp() override {
        sandbox.Write("amp/amp.sch", kSheet);
        doc = static_cast<CSchematicDoc*>(Open("amp/amp.sch"));
        ASSERT_NE(doc, nullptr);
        view = static_cast<CSchematicView*>(ViewOf(doc));
    }
    std::string Element(const std::string& instance) const {
        int at = doc->FindElement(instance);
        return at < 0 ? std::string() : doc->Lines()[at];
    }

    CSchematicDoc* doc = nullptr;
    CSchematicView* view = nullptr;
};

TEST(EditorLineTest, ASemicolonStartsACommandOnlyWhereAColonFollows) {
    EXPECT_EQ(SplitEditorLine(":set cpyinst 1;:read ~/a.sch;:set cpyinst 0"),
              (std::vector<std::string>{":set cpyinst 1", ":read ~/a.sch", ":set cpyinst 0"}));
    EXPECT_EQ(SplitEditorLine(":property T note:a;b"),
              std::vector<std::string>{":property T note:a;b"});
}

TEST_F(EditorCommandsTest, SearchFoldersGoFirstOrLastOnceAndLeaveByName) {
    std::vector<std::string>& folders = app.EditorSearchFolders();
    EXPECT_EQ(Script(doc, ":path +C:\\lib"), 1);
    EXPECT_EQ(Script(doc, ":path C:\\amp+"), 1);
    EXPECT_EQ(Script(doc, ":path +C:\\parts"), 1);
    EXPECT_EQ(Script(doc, ":path +c:\\LIB"), 1);  // known already: it moves to the end
    EXPECT_EQ(folders, (std::vector<std::string>{"C:\\amp", "C:\\parts", "c:\\LIB"}));
    EXPECT_EQ(Script(doc, ":delpathdir C:\\PARTS"), 1);
    EXPECT_EQ(folders, (std::vector<std::string>{"C:\\amp", "c:\\LIB"}));

    EXPECT_EQ(Script(doc, ":delpathdir C:\\nowhere"), 0);
    EXPECT_EQ(Script(doc, ":path C:\\plain"), 0);
    EXPECT_EQ(folders, (std::vector<std::string>{"C:\\amp", "c:\\LIB"}));
    EXPECT_EQ(view->Events().back(),
              "error: \":path\" takes a folder with '+' before or behind "
              "it: C:\\plain");
}

TEST_F(EditorCommandsTest, APropertyGoesToTheSelectedElementOnly) {
    EXPECT_EQ(Script(doc, ":findsymbol tl1;:property T W:12"), 1);
    EXPECT_EQ(Script(doc, ":property T Z0:50"), 1);
    EXPECT_EQ(Element("TL1"), "use MLIN TL1 in out W=12 L=100 Z0=50");
    EXPECT_EQ(view->State().selection, "tl1");

    EXPECT_EQ(Script(doc, ":unselect;:property T W:1"), 0);
    EXPECT_EQ(view->Events().back(), "error: No element is selected for \":property\".");
    EXPECT_EQ(Script(doc, ":findsymbol X9;:property T W:1"), 0);
    EXPECT_EQ(view->Events().back(), "error: No element X9 in amp.sch.");
    EXPECT_EQ(view->State().selection, "");
    EXPECT_EQ(Script(doc, ":findsymbol P1;:property W:1"), 0);
    EXPECT_EQ(Element("TL1"), "use MLIN TL1 in out W=12 L=100 Z0=50");
    EXPECT_EQ(Element("P1"), "use PORT P1 in Z=50");
}

TEST_F(EditorCommandsTest, ReadTakesASheetsElementsAndReplacesOnlyWithCopiedInstances) {
    sandbox.Write("amp/trl.sch",
                  "[schematic2]\nver 40\n[cell use]\nuse MLIN TL1 in out W=20 L=90\n"
                  "use MLIN TL2 out x W=20 L=50\n");
    ASSERT_EQ(win::SetCurrentDirectory(sandbox.Platform("amp").c_str()), win::TRUE);

    EXPECT_EQ(Script(doc, ":read ~/trl.sch"), 1);
    EXPECT_EQ(Element("TL1"), "use MLIN TL1 in out W=10 L=100");
    EXPECT_EQ(Element("TL2"), "use MLIN TL2 out x W=20 L=50");

    EXPECT_EQ(Script(doc, ":set cpyinst 1;:read ~/trl.sch;:set cpyinst 0"), 1);
    EXPECT_EQ(Element("TL1"), "use MLIN TL1 in out W=20 L=90");
    EXPECT_EQ(view->State().settings.at("cpyinst"), "0");
    // The elements stay in their section.
    EXPECT_EQ(doc->Lines().back(), "[comments]");

    EXPECT_EQ(Script(doc, ":read ~/gone.sch"), 0);
    EXPECT_EQ(view->Events().back(), "error: Unable to open " + sandbox.Platform("amp/gone.sch") +
                                         ": the file does not exist.");
}

TEST_F(EditorCommandsTest, UnknownCommandsAndBadDesignsChangeNothing) {
    const std::vector<std::string> before = doc->Lines();
    EXPECT_EQ(Script(doc, ":explode X1"), 0);
    EXPECT_EQ(view->Events().back(), "error: Unknown editor command: :explode");
    EXPECT_EQ(frame->StatusText(), "Unknown editor command: :explode");
    EXPECT_EQ(Script(doc, "findsymbol P1"), 0);
    EXPECT_EQ(Script(doc, ""), 0);
    EXPECT_EQ(Script(doc, ":filtertool  CAPQ"), 0);
    EXPECT_EQ(Script(doc, ":smithtool  CAPQ C1 in 0, CAPQ P1 in 0"), 0);
    EXPECT_EQ(view->Events().back(), "error: The instance name P1 is taken.");
    EXPECT_EQ(Script(doc, ":filtertool "), 0);
    EXPECT_EQ(doc->Lines(), before);
    EXPECT_FALSE(doc->IsModified());
}

TEST_F(EditorCommandsTest, ImportedTextReplacesTheSchematic) {
    sandbox.Write("filter.sch", "[schematic2]\nver 40\n[cell use]\nuse CAPQ C1 in 0 C=1pF\n");
    const std::string path = sandbox.Platform("filter.sch");
    EXPECT_EQ(view->SendMessage(0x6421, 0, reinterpret_cast<win::LPARAM>(path.c_str())), 1);
    EXPECT_EQ(doc->Lines(), (std::vector<std::string>{"[schematic2]", "ver 40", "[cell use]",
                                                      "use CAPQ C1 in 0 C=1pF"}));
    EXPECT_TRUE(doc->IsModified());

    sandbox.Write("bad.sch", "nothing\n");
    const std::string bad = sandbox.Platform("bad.sch");
    EXPECT_EQ(view->SendMessage(0x6421, 0, reinterpret_cast<win::LPARAM>(bad.c_str())), 0);
    EXPECT_EQ(doc->Lines().size(), 4u);
}

}  // namespace
}  // namespace velorand::host

#include "core/simulator_info.h"

#include <gtest/gtest.h>

#include "platform/testing/sandbox.h"
#include "platform/win/config_files.h"

namespace velorand {
namespace {

class SimulatorInfoTest : public testing::SandboxTest {
  protected:
    // The suite's template settings, as an installation leaves them in the registry.
    static void InstallTemplateList(const std::string& lines) {
        testing::WriteFile(win::RegistryPath(),
                           "[HKEY_LOCAL_MACHINE\\Software\\Dravik\\Velorand VX\\8.5\\vel85\\"
                           "Template List]\n" +
                               lines);
    }
};

TEST_F(SimulatorInfoTest, TheTwoSimulatorsAndTheirNamesFromTheInstalledList) {
    InstallTemplateList("Simulator=Quintaris,Lumentra\n");
    SimulatorInfo first(0);
    EXPECT_EQ(first.GetTranslator(), "sch2qt");
    EXPECT_EQ(first.GetNetlistExtension(), ".ckt");
    EXPECT_EQ(first.shortTag, "qvx");
    EXPECT_EQ(first.GetDisplayName(), "Quintaris");
    SimulatorInfo second(1);
    EXPECT_EQ(second.GetTranslator(), "sch2lm");
    EXPECT_EQ(second.GetNetlistExtension(), ".lmt");
    EXPECT_EQ(second.shortTag, "pln");
    EXPECT_EQ(second.GetDisplayName(), "Lumentra");

    // The first entry names index 0 as it is written, whatever its letter case.
    InstallTemplateList("Simulator=PRIME-lattice\n");
    EXPECT_EQ(SimulatorInfo(0).GetDisplayName(), "PRIME-lattice");
}

TEST_F(SimulatorInfoTest, IndexZeroIsNotInstalledUnlessTheFirstEntryNamesIt) {
    InstallTemplateList("Simulator=Lumentra,Quintaris\n");
    EXPECT_EQ(SimulatorInfo(0).GetDisplayName(), "Not Installed");
    InstallTemplateList("Simulator=Quintaris2\n");
    EXPECT_EQ(SimulatorInfo(0).GetDisplayName(), "Not Installed");
    // Without any registry the list is empty.
    std::filesystem::remove(win::RegistryPath());
    EXPECT_EQ(SimulatorInfo(0).GetDisplayName(), "Not Installed");
}

TEST_F(SimulatorInfoTest, UnknownIndexesDescribeNothing) {
    InstallTemplateList("Simulator=Quintaris,Lumentra\n");
    for (int index : {-1, 2, 1000}) {
        SimulatorInfo info(index);
        EXPECT_EQ(info.GetTranslator(), "") << index;
        EXPECT_EQ(info.GetNetlistExtension(), "") << index;
        EXPECT_EQ(info.shortTag, "") << index;
        EXPECT_EQ(info.GetDisplayName(), "") << index;
    }
}

TEST_F(SimulatorInfoTest, TemplateSettingsComeFromTheFixedPathOnly) {
    InstallTemplateList("Layout=Velorand Layout\nTemplate3=Quintaris,a,b\n");
    EXPECT_EQ(ReadTemplateSetting("Template List", "Layout", "none"), "Velorand Layout");
    EXPECT_EQ(ReadTemplateSetting("template list", "TEMPLATE3", ""), "Quintaris,a,b");
    EXPECT_EQ(ReadTemplateSetting("Template List", "Simulator", "none"), "none");
    EXPECT_EQ(ReadTemplateSetting("Other", "Layout", "none"), "none");

    // A tree under another application's key is not looked at.
    testing::WriteFile(win::RegistryPath(),
                       "[HKEY_LOCAL_MACHINE\\Software\\Dravik\\Velorand VX\\8.5\\velorand\\"
                       "Template List]\nLayout=x\n");
    EXPECT_EQ(ReadTemplateSetting("Template List", "Layout", "none"), "none");
}

TEST(ListEntryTest, EntriesBetweenSeparators) {
    std::string out;
    EXPECT_TRUE(ExtractListEntry("a,,c", 1, ',', out));
    EXPECT_EQ(out, "");
    EXPECT_TRUE(ExtractListEntry("a,,c", 2, ',', out));
    EXPECT_EQ(out, "c");
    EXPECT_FALSE(ExtractListEntry("a,,c", 3, ',', out));
    EXPECT_EQ(out, "");
    EXPECT_TRUE(ExtractListEntry("", 0, ',', out));
    EXPECT_FALSE(ExtractListEntry("a", -1, ',', out));
}

}  // namespace
}  // namespace velorand

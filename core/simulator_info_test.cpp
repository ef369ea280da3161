#include "core/simulator_info.h"

#include <gtest/gtest.h>

#include "core/testing/template_list.h"
#include "platform/testing/sandbox.h"
#include "platform/win/config_files.h"

namespace velorand {
namespace {

using SimulatorInfoTest = testing::SandboxTest;

TEST_F(SimulatorInfoTest, EachSimulatorsTranslatorNetlistAndTag) {
    testing::InstallTemplateList("Simulator=Quintaris,Lumentra\n");
    SimulatorInfo first(0);
    EXPECT_EQ(first.GetTranslator(), "sch2qt");
    EXPECT_EQ(first.GetNetlistExtension(), ".ckt");
    EXPECT_EQ(first.shortTag, "qvx");
    SimulatorInfo second(1);
    EXPECT_EQ(second.GetTranslator(), "sch2lm");
    EXPECT_EQ(second.GetNetlistExtension(), ".lmt");
    EXPECT_EQ(second.shortTag, "pln");
    SimulatorInfo unknown(2);
    EXPECT_EQ(unknown.GetTranslator() + unknown.GetNetlistExtension() + unknown.shortTag, "");

    // Index 0 takes the first entry's name as it is written, whatever its letter case.
    testing::InstallTemplateList("Simulator=PRIME-lattice,Quintaris\n");
    EXPECT_EQ(SimulatorInfo(0).GetDisplayName(), "PRIME-lattice");
}

TEST_F(SimulatorInfoTest, TemplateSettingsComeFromTheSuitesOwnKeyOnly) {
    testing::WriteFile(win::RegistryPath(),
                       "[HKEY_LOCAL_MACHINE\\Software\\Dravik\\Velorand VX\\8.5\\vel85\\"
                       "Template List]\nLayout=Velorand Layout\n"
                       "[HKEY_LOCAL_MACHINE\\Software\\Dravik\\Velorand VX\\8.5\\velorand\\"
                       "Template List]\nSimulator=Quintaris\n");
    EXPECT_EQ(ReadTemplateSetting("template list", "LAYOUT", "none"), "Velorand Layout");
    EXPECT_EQ(ReadTemplateSetting("Template List", "Simulator", "none"), "none");
    EXPECT_EQ(ReadTemplateSetting("Other", "Layout", "none"), "none");
    EXPECT_EQ(SimulatorInfo(0).GetDisplayName(), "Not Installed");
}

}  // namespace
}  // namespace velorand

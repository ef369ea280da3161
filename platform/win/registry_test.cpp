#include "platform/win/registry.h"

#include <filesystem>
#include <string>

#include "platform/testing/sandbox.h"
#include "platform/win/config_files.h"
#include "platform/win/last_error.h"

namespace win {
namespace {

namespace fs = std::filesystem;
using velorand::testing::ReadFile;
using velorand::testing::SandboxTest;
using velorand::testing::WriteFile;

class RegistryTest : public SandboxTest {
  protected:
    static LONG Set(HKEY key, const char* name, const std::string& value) {
        return RegSetValueEx(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                             static_cast<DWORD>(value.size() + 1));
    }

    // The value as the suite reads it: size first, then the text.
    static std::string Query(HKEY key, const char* name) {
        DWORD type = 0;
        DWORD size = 0;
        EXPECT_EQ(RegQueryValueEx(key, name, nullptr, &type, nullptr, &size), ERROR_SUCCESS);
        EXPECT_EQ(type, REG_SZ);
        std::string value(size, '\0');
        EXPECT_EQ(RegQueryValueEx(key, name, nullptr, nullptr,
                                  reinterpret_cast<BYTE*>(value.data()), &size),
                  ERROR_SUCCESS);
        EXPECT_EQ(value.size(), size);
        return value.substr(0, size - 1);
    }
};

TEST_F(RegistryTest, CreatedKeysAndValuesRoundTrip) {
    HKEY key = nullptr;
    DWORD disposition = 0;
    ASSERT_EQ(RegCreateKeyEx(
                  HKEY_LOCAL_MACHINE, "Software\\Dravik\\Velorand VX\\8.5\\velorand\\Template List",
                  0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, &disposition),
              ERROR_SUCCESS);
    EXPECT_EQ(disposition, REG_CREATED_NEW_KEY);
    EXPECT_EQ(Set(key, "Simulator", "QT,Spice"), ERROR_SUCCESS);
    EXPECT_EQ(Set(key, "Layout", " padded \"text\" "), ERROR_SUCCESS);
    EXPECT_EQ(Set(key, nullptr, "default"), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(ReadFile(RegistryPath()),
              "[HKEY_LOCAL_MACHINE\\Software\\Dravik\\Velorand VX\\8.5\\velorand\\Template "
              "List]\nSimulator=QT,Spice\nLayout=\" padded \"text\" \"\n@=default\n");

    // Another letter case opens the same key, for reading only.
    ASSERT_EQ(
        RegOpenKeyEx(HKEY_LOCAL_MACHINE, "SOFTWARE\\dravik\\Velorand VX\\8.5\\", 0, KEY_READ, &key),
        ERROR_SUCCESS);
    HKEY section = nullptr;
    ASSERT_EQ(RegOpenKeyEx(key, "VELORAND\\template list", 0, KEY_READ, &section), ERROR_SUCCESS);
    EXPECT_EQ(Query(section, "simulator"), "QT,Spice");
    EXPECT_EQ(Query(section, "Layout"), " padded \"text\" ");
    EXPECT_EQ(Query(section, ""), "default");
    EXPECT_EQ(Set(section, "Simulator", "x"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegCloseKey(section), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);

    ASSERT_EQ(RegCreateKeyEx(HKEY_LOCAL_MACHINE, "software\\DRAVIK", 0, nullptr, 0, KEY_READ,
                             nullptr, &key, &disposition),
              ERROR_SUCCESS);
    EXPECT_EQ(disposition, REG_OPENED_EXISTING_KEY);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
}

TEST_F(RegistryTest, MissingKeysValuesAndHandles) {
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyEx(HKEY_LOCAL_MACHINE, "Software\\Nobody", 0, KEY_READ, &key),
              ERROR_FILE_NOT_FOUND);
    WriteFile(RegistryPath(), "[HKEY_CLASSES_ROOT\\.dwg]\n@=AutoCAD.Drawing\n");
    EXPECT_EQ(RegOpenKeyEx(HKEY_LOCAL_MACHINE, ".dwg", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    ASSERT_EQ(RegOpenKeyEx(HKEY_CLASSES_ROOT, ".dwg", 0, KEY_READ, &key), ERROR_SUCCESS);
    DWORD size = 0;
    EXPECT_EQ(RegQueryValueEx(key, "Absent", nullptr, nullptr, nullptr, &size),
              ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegQueryValueEx(key, nullptr, nullptr, nullptr, nullptr, &size),
              ERROR_INVALID_HANDLE);
}

TEST_F(RegistryTest, BufferTooSmallGivesTheSizeNeeded) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyEx(HKEY_CLASSES_ROOT, "AutoCAD.Drawing\\shell\\open\\command", 0, nullptr,
                             0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    // A value in quotes of its own is stored in one more pair, which reading takes off.
    const std::string expected = "\"C:\\acad\\acad.exe\" \"%1\"";
    ASSERT_EQ(Set(key, nullptr, expected), ERROR_SUCCESS);
    EXPECT_EQ(
        ReadFile(RegistryPath()),
        "[HKEY_CLASSES_ROOT\\AutoCAD.Drawing\\shell\\open\\command]\n@=\"" + expected + "\"\n");
    char data[8] = "unused";
    DWORD size = sizeof data;
    EXPECT_EQ(RegQueryValueEx(key, nullptr, nullptr, nullptr, reinterpret_cast<BYTE*>(data), &size),
              ERROR_MORE_DATA);
    EXPECT_EQ(size, expected.size() + 1);
    EXPECT_EQ(Query(key, nullptr), expected);
    // The parent of a key that has a section of its own exists as well.
    HKEY parent = nullptr;
    EXPECT_EQ(RegOpenKeyEx(HKEY_CLASSES_ROOT, "autocad.drawing", 0, KEY_READ, &parent),
              ERROR_SUCCESS);
    RegCloseKey(parent);
    RegCloseKey(key);
}

TEST_F(RegistryTest, ReadOnlyRegistryRefusesNewKeys) {
    WriteFile(RegistryPath(), "[HKEY_LOCAL_MACHINE\\Software]\n");
    fs::permissions(RegistryPath(), fs::perms::owner_read);
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyEx(HKEY_LOCAL_MACHINE, "Software\\New", 0, nullptr, 0, KEY_ALL_ACCESS,
                             nullptr, &key, nullptr),
              ERROR_ACCESS_DENIED);
    EXPECT_EQ(ReadFile(RegistryPath()), "[HKEY_LOCAL_MACHINE\\Software]\n");
}

}  // namespace
}  // namespace win

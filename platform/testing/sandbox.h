// A private world for one test: its own folders, profile, registry, drive table,
// temporary and runtime folders, so that tests never touch a person's files and can
// run side by side. Everything is removed again at the end of the test.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace velorand::testing {

class Sandbox {
  public:
    Sandbox();
    ~Sandbox();
    Sandbox(const Sandbox&) = delete;
    Sandbox& operator=(const Sandbox&) = delete;

    // The sandbox's root folder on the POSIX side.
    const std::filesystem::path& Root() const { return root_; }
    // A POSIX path below the root.
    std::filesystem::path Posix(const std::string& relative) const;
    // The platform path of a POSIX path below the root: drive C: is the root.
    std::string Platform(const std::string& relative) const;

    // Writes a file below the root, making its folders; returns its POSIX path.
    std::filesystem::path Write(const std::string& relative, const std::string& text) const;
    // Reads a file below the root whole; empty when it is missing.
    std::string Read(const std::string& relative) const;

  private:
    void SetEnv(const char* name, const std::string& value);

    std::filesystem::path root_;
    std::map<std::string, std::optional<std::string>> savedEnv_;
};

// Test fixture giving every test a fresh sandbox.
class SandboxTest : public ::testing::Test {
  protected:
    Sandbox sandbox;
};

// Reads a whole file by its POSIX path; empty when it is missing.
std::string ReadFile(const std::filesystem::path& path);
// Writes a whole file by its POSIX path, making its folders.
void WriteFile(const std::filesystem::path& path, const std::string& text);

}  // namespace velorand::testing

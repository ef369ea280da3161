// A stand-in tool for the launcher's tests, built under the names of the real tools into
// a folder of its own. It appends its argument vector to the file that
// VELORAND_FAKE_TOOL_RECORD names, one argument a line and "--" after the call; writes
// VELORAND_FAKE_TOOL_TEXT into the file VELORAND_FAKE_TOOL_OUTPUT names, when both are
// set; and returns the number in VELORAND_FAKE_TOOL_RESULT (0 without it).
#include <cstdio>
#include <cstdlib>
#include <cstring>

// Exported under the symbol "main", as the suite's tools are.
__attribute__((visibility("default"))) int FakeToolEntry(int, char**) __asm__("main");
int FakeToolEntry(int argc, char** argv) {
    if (const char* record = std::getenv("VELORAND_FAKE_TOOL_RECORD")) {
        if (std::FILE* out = std::fopen(record, "a")) {
            for (int i = 0; i < argc; ++i)
                std::fprintf(out, "%s\n", argv[i]);
            std::fprintf(out, "--\n");
            std::fclose(out);
        }
    }
    const char* output = std::getenv("VELORAND_FAKE_TOOL_OUTPUT");
    const char* text = std::getenv("VELORAND_FAKE_TOOL_TEXT");
    if (output != nullptr && text != nullptr) {
        if (std::FILE* out = std::fopen(output, "wb")) {
            std::fwrite(text, 1, std::strlen(text), out);
            std::fclose(out);
        }
    }
    const char* result = std::getenv("VELORAND_FAKE_TOOL_RESULT");
    return result != nullptr ? std::atoi(result) : 0;
}

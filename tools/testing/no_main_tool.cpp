// A library under a tool's name that exports no `main`, for the launcher's tests.
extern "C" __attribute__((visibility("default"))) int Run(int argc, char** argv) {
    return 0;
}

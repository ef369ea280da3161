// A tool library for the loader's tests: `main` answers with its argument count and
// writes its arguments, one a line, to the file named by the last one.
#include <fstream>

int main(int argc, char** argv) {
    std::ofstream out(argv[argc - 1], std::ios::binary);
    for (int i = 0; i < argc - 1; ++i)
        out << argv[i] << '\n';
    return argc;
}

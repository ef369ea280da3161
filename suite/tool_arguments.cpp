#include "suite/tool_arguments.h"

namespace suite {

namespace {

bool Accepts(std::string_view accepted, std::string_view option) {
    std::size_t start = 0;
    while (start < accepted.size()) {
        std::size_t end = accepted.find(' ', start);
        if (end == std::string_view::npos)
            end = accepted.size();
        if (accepted.substr(start, end - start) == option)
            return true;
        start = end + 1;
    }
    return false;
}

std::vector<std::string> SplitFolders(std::string_view list) {
    std::vector<std::string> folders;
    std::size_t start = 0;
    while (start < list.size()) {
        std::size_t end = list.find('+', start);
        if (end == std::string_view::npos)
            end = list.size();
        if (end > start)
            folders.emplace_back(list.substr(start, end - start));
        start = end + 1;
    }
    return folders;
}

}  // namespace

std::string TargetArgument(int argc, const char* const* argv) {
    if (argc < 2 || argv == nullptr || argv[argc - 1] == nullptr)
        return {};
    std::string_view last = argv[argc - 1];
    return last.empty() || last[0] == '-' ? std::string() : std::string(last);
}

std::optional<ToolArguments> ParseToolArguments(int argc, const char* const* argv,
                                                std::string_view accepted, std::string& error) {
    if (argc < 2 || argv == nullptr) {
        error = "no target schematic given";
        return std::nullopt;
    }
    ToolArguments args;
    for (int i = 1; i < argc; ++i) {
        if (argv[i] == nullptr) {
            error = "argument " + std::to_string(i) + " is missing";
            return std::nullopt;
        }
        std::string_view arg = argv[i];
        if (arg.empty() || arg[0] != '-') {
            if (i != argc - 1) {
                error = "unexpected argument '" + std::string(arg) + "' before the last";
                return std::nullopt;
            }
            args.target = arg;
            continue;
        }
        std::string_view option;
        std::string_view value;
        if (arg == "-debug" || arg == "-sh") {
            option = arg.substr(1);
        } else {
            option = arg.substr(1, 1);
            value = arg.substr(std::min<std::size_t>(2, arg.size()));
        }
        if (option.empty() || !Accepts(accepted, option)) {
            error = "unknown option '" + std::string(arg) + "'";
            return std::nullopt;
        }
        bool flag =
            option == "debug" || option == "sh" || option == "l" || option == "r" || option == "d";
        if (flag && !value.empty()) {
            error = "unknown option '" + std::string(arg) + "'";
            return std::nullopt;
        }
        if (!flag && value.empty() && option != "h") {
            error = "option '" + std::string(arg) + "' needs a value";
            return std::nullopt;
        }
        switch (option[0]) {
            case 'd':
                (option == "debug" ? args.debug : args.noLogNotice) = true;
                break;
            case 's':
                args.listFiles = true;
                break;
            case 'l':
                args.listHierarchy = true;
                break;
            case 'r':
                args.pathList = true;
                break;
            case 'h':
                args.hostWindow = value;
                break;
            case 'p':
                args.searchFolders = SplitFolders(value);
                break;
            case 'o':
                args.output = value;
                break;
            case 'a':
                args.copyTarget = value;
                break;
            case 'c':
                args.confineFolder = value;
                break;
            case 'f':
                args.mendFile = value;
                break;
        }
    }
    if (args.target.empty()) {
        error = "no target schematic given";
        return std::nullopt;
    }
    return args;
}

}  // namespace suite

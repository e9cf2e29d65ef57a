#include "tools/skincheck/CommandLine.h"

namespace vantik {

std::optional<Options> ParseCommandLine(const std::vector<std::filesystem::path>& arguments) {
    Options options;
    for (const std::filesystem::path& argument : arguments) {
        if (argument == "--help" || argument == "-h") {
            options.Help = true;
        } else if (argument == "--json") {
            options.Json = true;
        } else if (argument.empty() || argument.u16string().starts_with(u"-")) {
            return std::nullopt;
        } else {
            options.Definitions.push_back(argument);
        }
    }
    if (options.Definitions.empty() && !options.Help) return std::nullopt;
    return options;
}

} // namespace vantik

#include "generator/DrawingGenerator.h"

#include <charconv>
#include <cstdio>
#include <exception>
#include <limits>
#include <optional>
#include <string_view>

namespace {

constexpr const char* kUsage =
    "Usage: make_drawing --out FILE [--layers N] [--entities N] [--blocks N] [--layouts N]\n"
    "                    [--version AC1015|AC1018|AC1027|AC1032] [--seed N] [--binary]\n"
    "Writes a drawing of that size as DXF, text or binary. Equal options give equal files.\n";

struct Arguments
{
    DrawingOptions drawing;
    std::string_view out;
};

/// Reads a whole number from `least` on; false for anything else.
template <class Number>
bool readNumber(std::string_view text, Number least, Number& value)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < least)
        return false;
    value = number;
    return true;
}

bool readVersion(std::string_view text, DrawingVersion& version)
{
    for (const DrawingVersion known : {DrawingVersion::V2000, DrawingVersion::V2004,
                                       DrawingVersion::V2013, DrawingVersion::V2018})
    {
        if (text == versionName(known)) {
            version = known;
            return true;
        }
    }
    return false;
}

bool readOption(std::string_view name, std::string_view value, Arguments& arguments)
{
    DrawingOptions& drawing = arguments.drawing;
    if (name == "--layers")
        return readNumber(value, 2, drawing.layers);
    if (name == "--entities")
        return readNumber<std::int64_t>(value, 0, drawing.entities);
    if (name == "--blocks")
        return readNumber(value, 1, drawing.blocks);
    if (name == "--layouts")
        return readNumber(value, 1, drawing.layouts);
    if (name == "--seed")
        return readNumber<std::uint64_t>(value, 0, drawing.seed);
    if (name == "--version")
        return readVersion(value, drawing.version);
    if (name == "--out")
        arguments.out = value;
    return name == "--out" && !value.empty();
}

std::optional<Arguments> readArguments(int count, char** values)
{
    Arguments arguments;
    for (int index = 1; index < count; index += 2) {
        if (std::string_view(values[index]) == "--binary") {
            arguments.drawing.binary = true;
            --index;
            continue;
        }
        const char* const value = index + 1 < count ? values[index + 1] : "";
        if (!readOption(values[index], value, arguments)) {
            std::fprintf(stderr, "make_drawing: \"%s %s\" is not understood.\n%s", values[index],
                         value, kUsage);
            return std::nullopt;
        }
    }
    if (arguments.out.empty()) {
        std::fputs(kUsage, stderr);
        return std::nullopt;
    }
    return arguments;
}

} // namespace

int main(int argc, char** argv)
{
    const std::optional<Arguments> arguments = readArguments(argc, argv);
    if (!arguments)
        return 2;
    try {
        const std::uint64_t bytes = generateDrawingFile(arguments->drawing, arguments->out);
        std::printf("%.*s: %llu bytes\n", static_cast<int>(arguments->out.size()),
                    arguments->out.data(), static_cast<unsigned long long>(bytes));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make_drawing: %s\n", error.what());
        return 1;
    }
    return 0;
}

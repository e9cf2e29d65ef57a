#include "tools/pngprobe/CommandLine.h"

#include <string_view>

namespace vantik {

namespace {

// 16 for what is no digit.
std::uint32_t DigitValue(char16_t c) noexcept {
    if (c >= u'0' && c <= u'9') return c - u'0';
    if (c >= u'a' && c <= u'f') return c - u'a' + 10u;
    if (c >= u'A' && c <= u'F') return c - u'A' + 10u;
    return 16;
}

// Of at most eight digits, so that every number fits.
std::optional<std::uint32_t> ParseNumber(std::u16string_view text, std::uint32_t base) noexcept {
    if (text.empty() || text.size() > 8) return std::nullopt;
    std::uint32_t number = 0;
    for (const char16_t c : text) {
        if (DigitValue(c) >= base) return std::nullopt;
        number = number * base + DigitValue(c);
    }
    return number;
}

class Parser {
public:
    explicit Parser(const std::vector<std::u16string>& arguments) : arguments_(arguments) {}

    std::optional<Options> Parse() {
        while (isFine_ && next_ < arguments_.size()) TakeArgument(arguments_[next_++]);
        const bool isWhole = hasFile_ && hasOutput_ == Writes() && (!hasStyle_ || options_.Over);
        if (!isFine_ || !isWhole) return std::nullopt;
        return options_;
    }

private:
    bool Writes() const noexcept { return options_.WritesRgba || options_.Over; }

    void TakeArgument(const std::u16string& argument) {
        if (argument == u"--rgba") {
            Demand(!Writes());
            options_.WritesRgba = true;
        } else if (argument == u"--over") {
            Demand(!Writes());
            TakeColour();
        } else if (argument == u"--style") {
            TakeStyle();
        } else {
            TakeName(argument);
        }
    }

    // The first name behind --rgba or --over is the one that is written to.
    void TakeName(const std::u16string& name) {
        const bool isOutput = Writes() && !hasOutput_;
        bool& isThere = isOutput ? hasOutput_ : hasFile_;
        Demand(!isThere && !name.empty() && !name.starts_with(u"--"));
        isThere = true;
        (isOutput ? options_.Output : options_.File) = name;
    }

    void TakeColour() {
        const std::u16string_view text = NextValue();
        options_.Over = ParseNumber(text, 16);
        Demand(text.size() == 6 && options_.Over);
    }

    void TakeStyle() {
        const auto style = ParseNumber(NextValue(), 10);
        Demand(!hasStyle_ && style && *style <= 255);
        options_.Style = static_cast<std::uint8_t>(style.value_or(0));
        hasStyle_ = true;
    }

    std::u16string_view NextValue() noexcept {
        return next_ < arguments_.size() ? std::u16string_view(arguments_[next_++]) : std::u16string_view();
    }

    void Demand(bool isMet) noexcept { isFine_ = isFine_ && isMet; }

    const std::vector<std::u16string>& arguments_;
    std::size_t next_ = 0;
    Options options_;
    bool hasFile_ = false;
    bool hasOutput_ = false;
    bool hasStyle_ = false;
    bool isFine_ = true;
};

} // namespace

std::optional<Options> ParseCommandLine(const std::vector<std::u16string>& arguments) {
    return Parser(arguments).Parse();
}

} // namespace vantik

#include "CommandLine.h"

#include <algorithm>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <utility>

#include "host/HostError.h"
#include "host/SkinSettings.h"

namespace vantik {

namespace {

constexpr int LargestSide = 16000;

[[noreturn]] void Refuse(const std::wstring& option, const std::wstring& value, const char* wanted) {
    throw UsageError(ToUtf8(option) + (value.empty() ? " \"\"" : " " + ToUtf8(value)) + ": expected " +
                     wanted);
}

std::optional<int> ToNumber(const std::wstring& text) {
    wchar_t* end = nullptr;
    const long number = std::wcstol(text.c_str(), &end, 10);
    const bool whole = !text.empty() && *end == L'\0' && number >= -1000000 && number <= 1000000;
    return whole ? std::optional(static_cast<int>(number)) : std::nullopt;
}

std::optional<POINT> ToPair(const std::wstring& text, wchar_t separator) {
    const std::size_t at = text.find(separator);
    if (at == std::wstring::npos) return std::nullopt;
    const auto x = ToNumber(text.substr(0, at));
    const auto y = ToNumber(text.substr(at + 1));
    if (!x || !y) return std::nullopt;
    return POINT{*x, *y};
}

POINT ToPoint(const std::wstring& option, const std::wstring& value) {
    const auto point = ToPair(value, L',');
    if (!point) Refuse(option, value, "X,Y in pixels");
    return *point;
}

Step SizeOf(const std::wstring& option, const std::wstring& value) {
    const auto size = ToPair(value, L'x');
    const auto fits = [](LONG side) { return side > 0 && side <= LargestSide; };
    if (!size || !fits(size->x) || !fits(size->y)) Refuse(option, value, "WIDTHxHEIGHT in pixels");
    return SizeStep{{size->x, size->y}};
}

Step SetOf(const std::wstring& option, const std::wstring& value) {
    const std::size_t equals = value.find(L'=');
    if (equals == std::wstring::npos || equals == 0) Refuse(option, value, "Name=Value");
    return SetStep{value.substr(0, equals), value.substr(equals + 1)};
}

Step DoOf(const std::wstring& option, const std::wstring& value) {
    std::vector<std::wstring> words = SplitWords(value);
    if (words.empty()) Refuse(option, value, "a member and its arguments");
    return DoStep{words.front(), {words.begin() + 1, words.end()}};
}

Step KeyOf(const std::wstring& option, const std::wstring& value) {
    const auto key = ToNumber(value);
    if (!key || *key < 1 || *key > 254)
        Refuse(option, value, "the number of a key, 1 to 254 (37 is the left arrow, 39 the right one)");
    return KeyStep{static_cast<WORD>(*key)};
}

Step WheelOf(const std::wstring& option, const std::wstring& value) {
    const auto notches = ToNumber(value);
    if (!notches || *notches < -100 || *notches > 100)
        Refuse(option, value, "a number of notches, -100 to 100");
    return WheelStep{*notches};
}

Step OutOf(const std::wstring& option, const std::wstring& value) {
    if (lstrcmpiW(std::filesystem::path(value).extension().c_str(), L".png") != 0)
        Refuse(option, value, "a file name that ends with .png");
    return OutStep{value};
}

std::wstring PathOf(const std::wstring& option, const std::wstring& value) {
    if (value.empty()) Refuse(option, value, "a file");
    return value;
}

using StepMaker = std::function<Step(const std::wstring& option, const std::wstring& value)>;

const StepMaker* FindMaker(const std::wstring& option) {
    static const std::pair<const wchar_t*, StepMaker> makers[] = {
        {L"--size", SizeOf},
        {L"--load", [](auto& o, auto& v) { return LoadStep{PathOf(o, v)}; }},
        {L"--save", [](auto& o, auto& v) { return SaveStep{PathOf(o, v)}; }},
        {L"--set", SetOf},
        {L"--do", DoOf},
        {L"--pointer", [](auto& o, auto& v) { return PointerStep{ToPoint(o, v)}; }},
        {L"--press", [](auto& o, auto& v) { return PressStep{ToPoint(o, v)}; }},
        {L"--key", KeyOf},
        {L"--wheel", WheelOf},
        {L"--out", OutOf},
    };
    const auto found =
        std::find_if(std::begin(makers), std::end(makers), [&](auto& each) { return option == each.first; });
    return found == std::end(makers) ? nullptr : &found->second;
}

// Each line of the file becomes a step of its own, and is checked like one.
void AddSettings(const std::wstring& path, std::vector<Step>& steps) {
    try {
        for (const SkinSetting& setting : ReadSkinSettings(path))
            steps.push_back(SetStep{setting.Property, setting.Value});
    } catch (const HostError& error) {
        throw UsageError("--settings: " + std::string(error.what()));
    }
}

} // namespace

const char* const UsageText = {
#include "Usage.txt"
};

std::vector<std::wstring> SplitWords(const std::wstring& text) {
    std::vector<std::wstring> words;
    std::wstring word;
    bool inWord = false;
    wchar_t quote = 0;
    for (const wchar_t character : text) {
        if (quote != 0 && character == quote) {
            quote = 0;
        } else if (quote == 0 && (character == L'"' || character == L'\'')) {
            quote = character;
            inWord = true;
        } else if (quote == 0 && character == L' ') {
            if (inWord) words.push_back(std::exchange(word, {}));
            inWord = false;
        } else {
            word += character;
            inWord = true;
        }
    }
    if (quote != 0) throw UsageError("--do " + ToUtf8(text) + ": a quotation mark is not closed");
    if (inWord) words.push_back(word);
    return words;
}

std::vector<std::wstring> ExpandFiles(const std::vector<std::wstring>& arguments) {
    std::vector<std::wstring> expanded;
    for (const std::wstring& argument : arguments) {
        if (!argument.starts_with(L'@')) {
            expanded.push_back(argument);
            continue;
        }
        std::ifstream file(std::filesystem::path(argument.substr(1)));
        if (!file) throw UsageError("cannot read " + ToUtf8(argument.substr(1)));
        for (std::string line; std::getline(file, line);) expanded.push_back(FromUtf8(line));
    }
    return expanded;
}

CommandLine ParseCommandLine(const std::vector<std::wstring>& arguments) {
    CommandLine line;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::wstring& option = arguments[i];
        if (option == L"--help" || option == L"-h") {
            line.Help = true;
            continue;
        }
        if (option == L"--design") {
            line.DesignTime = true;
            continue;
        }
        const StepMaker* makeStep = FindMaker(option);
        const bool known = makeStep || option == L"--control" || option == L"--settings";
        if (!known) throw UsageError("unknown option '" + ToUtf8(option) + "'");
        if (++i == arguments.size() || arguments[i].starts_with(L"--"))
            throw UsageError(ToUtf8(option) + " needs a value");
        if (makeStep) {
            line.Steps.push_back((*makeStep)(option, arguments[i]));
        } else if (option == L"--settings") {
            AddSettings(PathOf(option, arguments[i]), line.Steps);
        } else {
            line.ControlPath = PathOf(option, arguments[i]);
        }
    }
    if (line.Steps.empty() && !line.Help) throw UsageError("there is nothing to do");
    return line;
}

} // namespace vantik

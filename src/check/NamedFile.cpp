#include "check/NamedFile.h"

#include <string_view>
#include <vector>

#include "base/FilePath.h"
#include "base/Text.h"
#include "check/Utf8.h"
#include "check/Words.h"

namespace vantik {

namespace {

class NameCheck {
public:
    NameCheck(const DefinitionText& text, const DefinitionLine& entry, const std::string& effectOfMissing,
              Report& report)
        : name_(text.At(entry.Value)),
          decoded_(DecodeAnsi(name_)),
          at_(entry.Value.Begin),
          missing_(effectOfMissing),
          report_(report) {}

    // Whether the control may find a file of this name.
    bool CanBeFound() {
        if (name_.empty()) return Refuse(at_, "no file is named");
        if (!IsInCodePage() || !IsWindowsName()) return false;
        return IsBesideDefinition();
    }

    std::optional<SkinFile> Find(const SkinSource& source) {
        const std::vector<SkinFile> files = source.Find(decoded_);
        if (files.size() > 1) ReportSpellings(files);
        if (!files.empty() && files.front().CanBeRead) return files.front();
        Refuse(at_, files.empty() ? "there is no file " + Quote(name_) : Quote(name_) + " cannot be read");
        return std::nullopt;
    }

private:
    bool Refuse(std::size_t at, std::string what, std::string meant = {}) {
        report_.Error(at, {.What = std::move(what), .Effect = missing_, .Meant = std::move(meant)});
        return false;
    }

    // A name that an editor saved as UTF-8 becomes another one.
    bool IsInCodePage() {
        const std::size_t first = FirstBeyondAscii(name_);
        if (first == std::string_view::npos) return true;
        if (IsUtf8(name_))
            return Refuse(at_ + first, "a name in UTF-8", "ANSI, the system's code page, in the editor");
        report_.Warn(
            at_ + first,
            {.What = "a letter beyond ASCII in a name",
             .Effect = "The control finds the file where the system's code page is that of this text."});
        return true;
    }

    bool IsWindowsName() {
        const std::size_t odd = decoded_.find_first_of(u"<>\"|?*\t");
        if (odd == std::u16string::npos) return true;
        const char* const meant =
            decoded_[odd] == u'\t' ? "spaces in place of tabs, which are not taken off" : "";
        return Refuse(at_, Quote(name_) + " has a character that no file name on Windows has", meant);
    }

    bool IsBesideDefinition() {
        const std::size_t separator = decoded_.find_first_of(u"\\/:");
        if (separator == std::u16string::npos) return true;
        const std::u16string last = decoded_.substr(decoded_.find_last_of(u"\\/:") + 1);
        if (separator == 0 || decoded_[separator] == u':')
            return Refuse(at_, Quote(name_) + " is the name of a file with its whole path", ToUtf8(last));
        report_.Warn(
            at_, {.What = Quote(name_) + " is a name with a path",
                  .Effect = "The control looks from the skin's folder on, so that the skin is no longer one "
                            "folder that can be copied.",
                  .Meant = ToUtf8(last)});
        return true;
    }

    void ReportSpellings(const std::vector<SkinFile>& files) {
        std::string names;
        for (const SkinFile& file : files) names += (names.empty() ? "" : " and ") + ToUtf8(file.Name);
        report_.Warn(at_, {.What = "on disk there are " + names + ", which differ in case alone",
                           .Effect = "On Windows there can be but one of them."});
    }

    std::string_view name_;
    std::u16string decoded_;
    std::size_t at_;
    const std::string& missing_;
    Report& report_;
};

} // namespace

std::optional<SkinFile> FindNamedFile(const DefinitionText& text, const DefinitionLine& entry,
                                      const SkinSource& source, const std::string& effectOfMissing,
                                      Report& report) {
    NameCheck check(text, entry, effectOfMissing, report);
    return check.CanBeFound() ? check.Find(source) : std::nullopt;
}

} // namespace vantik

#include "check/IconFaults.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "base/FilePath.h"
#include "base/Text.h"
#include "check/NamedFile.h"
#include "check/PngCheck.h"
#include "check/Suggestion.h"
#include "check/Words.h"

namespace vantik {

namespace {

struct Role {
    std::u16string_view Key;
    const char* EffectOfMissing;
};

constexpr Role Roles[] = {
    {u"DELETEBUTTON", "The control keeps the close button of an earlier skin; at first bars have none."},
    {u"LEFTBUTTON",
     "The control keeps that of an earlier skin; at first no such button stands beside the row."},
    {u"RIGHTBUTTON",
     "The control keeps that of an earlier skin; at first no such button stands beside the row."},
    {u"MENUBAR",
     "The control keeps that of an earlier skin; at first the first icon of the list is the menu button."},
};

constexpr std::int32_t LargestIcon = 20; // pixels of a tab icon that are drawn

bool IsIcon(const DefinitionLine& line) {
    return line.Kind == LineKind::Entry && line.Section == SectionKind::Icon;
}

const Role* RoleOf(std::u16string_view key) {
    const auto role =
        std::find_if(std::begin(Roles), std::end(Roles), [&](auto& each) { return each.Key == key; });
    return role == std::end(Roles) ? nullptr : role;
}

using MissingRoles = std::vector<const Role*>;

MissingRoles RolesNotGiven(const DefinitionText& text) {
    MissingRoles missing;
    for (const Role& role : Roles) missing.push_back(&role);
    for (const DefinitionLine& line : text.Lines())
        if (IsIcon(line)) std::erase(missing, RoleOf(text.Upper(line.Key)));
    return missing;
}

// A key that is nearly a role, which is not given otherwise; null for the names of tab icons.
const Role* RoleMeantBy(const std::u16string& key, const MissingRoles& missing) {
    if (RoleOf(key)) return nullptr;
    const auto meant = std::find_if(missing.begin(), missing.end(), [&](const Role* each) {
        return !Nearest(key, {&each->Key, 1}).empty();
    });
    return meant == missing.end() ? nullptr : *meant;
}

void ReportRoleless(const DefinitionText& text, const DefinitionLine& line, const Role& meant,
                    Report& report) {
    const bool hasBlank = text.At(line.Key).ends_with(' ');
    report.Error(line.Key.Begin, {.What = Quote(text.At(line.Key)) + " is the name of a tab icon" +
                                          (hasBlank ? ", for the blank before the colon belongs to it" : ""),
                                  .Effect = meant.EffectOfMissing,
                                  .Meant = ToUtf8(meant.Key)});
}

void ReportMissingRoles(const DefinitionText& text, const MissingRoles& missing, Report& report) {
    const auto section =
        std::find_if(text.Lines().begin(), text.Lines().end(), [](const DefinitionLine& each) {
            return each.Kind == LineKind::Section && each.Section == SectionKind::Icon;
        });
    if (section == text.Lines().end()) return;
    for (const Role* role : missing)
        report.Warn(section->Content.Begin,
                    {.What = "there is no icon " + ToUtf8(role->Key), .Effect = role->EffectOfMissing});
}

// Those that a key was meant for are told of there.
void ReportRoles(const DefinitionText& text, Report& report) {
    const MissingRoles missing = RolesNotGiven(text);
    MissingRoles nowhere = missing;
    for (const DefinitionLine& line : text.Lines()) {
        const Role* const meant = IsIcon(line) ? RoleMeantBy(text.Upper(line.Key), missing) : nullptr;
        if (meant) ReportRoleless(text, line, *meant, report);
        std::erase(nowhere, meant);
    }
    ReportMissingRoles(text, nowhere, report);
}

// --- the files

std::string EffectOfNoPicture(bool isRole) {
    if (!isRole) return "The control leaves the icon's place empty.";
    return "The control leaves the button's place empty, as large as the picture that it read before.";
}

void ReportLarge(const DefinitionLine& line, const CheckedPng& png, Report& report) {
    if (png.Width <= LargestIcon && png.Height <= LargestIcon) return;
    report.Warn(line.Value.Begin, {.What = "the icon has " + std::to_string(png.Width) + " x " +
                                           std::to_string(png.Height) + " pixels",
                                   .Effect = "The control draws the first 20 x 20 pixels of it.",
                                   .Meant = "an icon of 20 x 20 pixels at most"});
}

std::string EffectOfTrouble(const CheckedPng& png, bool isRole) {
    if (!isRole || !png.SizeError) return EffectOfNoPicture(isRole);
    return RaisedError(*png.SizeError) + " and reads no further; no bitmap is loaded.";
}

void ReportIcon(const DefinitionText& text, const DefinitionLine& line, const SkinSource& source,
                Report& report) {
    const bool isRole = RoleOf(text.Upper(line.Key));
    const auto file = FindNamedFile(text, line, source, EffectOfNoPicture(isRole), report);
    if (!file) return;
    const CheckedPng png = CheckPng(file->Bytes);
    if (!png.Trouble.empty())
        report.Error(line.Value.Begin,
                     {.What = "nothing can be drawn of " + Quote(text.At(line.Value)) + ": " + png.Trouble,
                      .Effect = EffectOfTrouble(png, isRole)});
    else if (!isRole)
        ReportLarge(line, png, report);
}

} // namespace

void ReportIcons(const DefinitionText& text, const SkinSource& source, Report& report) {
    ReportRoles(text, report);
    for (const DefinitionLine& line : text.Lines())
        if (IsIcon(line)) ReportIcon(text, line, source, report);
}

} // namespace vantik

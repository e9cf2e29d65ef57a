#include "check/CheckSkin.h"

#include "check/BitmapFaults.h"
#include "check/DefinitionText.h"
#include "check/EncodingFaults.h"
#include "check/EntryFaults.h"
#include "check/IconFaults.h"
#include "check/ParserFaults.h"
#include "check/RectFaults.h"
#include "check/Report.h"
#include "check/StructureFaults.h"

namespace vantik {

std::vector<Fault> CheckSkin(const SkinSource& source) {
    const DefinitionText text(source.Definition());
    Report report(source.Name(), text);
    if (!ReportEncoding(text, report) || !ReportStart(text, report)) return report.Take();
    ReportEnd(text, report);
    ReportSections(text, report);
    ReportIdleLines(text, report);
    ReportRefusedLines(text, report);
    ReportDoubledKeys(text, report);
    ReportOddNumbers(text, report);
    ReportRects(text, ReportBitmap(text, source, report), report);
    ReportIcons(text, source, report);
    return report.Take();
}

std::vector<Fault> CheckSavedSkin(const FolderSource& source) {
    if (source.IsThere()) return CheckSkin(source);
    return {{.Severity = Severity::Error,
             .File = source.Name(),
             .Line = 1,
             .Column = 1,
             .What = "there is no such file, or it cannot be read",
             .Meant = {},
             .Effect = "In place of a definition that is missing the control shows its built-in skin."}};
}

} // namespace vantik

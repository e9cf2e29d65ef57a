#include "tools/skin/CheckSkin.h"

#include "tools/skin/BitmapFaults.h"
#include "tools/skin/DefinitionText.h"
#include "tools/skin/EncodingFaults.h"
#include "tools/skin/EntryFaults.h"
#include "tools/skin/IconFaults.h"
#include "tools/skin/ParserFaults.h"
#include "tools/skin/RectFaults.h"
#include "tools/skin/Report.h"
#include "tools/skin/StructureFaults.h"

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

} // namespace vantik

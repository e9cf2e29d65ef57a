#include "tools/skin/CheckSkin.h"

#include "tools/skin/DefinitionText.h"
#include "tools/skin/ParserFaults.h"
#include "tools/skin/Report.h"

namespace vantik {

std::vector<Fault> CheckSkin(const SkinSource& source) {
    const DefinitionText text(source.Definition());
    Report report(source.Name(), text);
    ReportRefusedLines(text, report);
    return report.Take();
}

} // namespace vantik

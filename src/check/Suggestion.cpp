#include "check/Suggestion.h"

#include <algorithm>
#include <vector>

#include "base/Text.h"

namespace vantik {

// Row by row of the table of distances between beginnings; a swap looks back two rows.
std::size_t EditDistance(std::u16string_view a, std::u16string_view b) {
    std::vector<std::vector<std::size_t>> rows(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            std::size_t& least = rows[i][j];
            if (i == 0 || j == 0) {
                least = i + j;
                continue;
            }
            least = std::min(
                {rows[i - 1][j] + 1, rows[i][j - 1] + 1, rows[i - 1][j - 1] + (a[i - 1] != b[j - 1])});
            const bool isSwap = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (isSwap) least = std::min(least, rows[i - 2][j - 2] + 1);
        }
    }
    return rows[a.size()][b.size()];
}

std::u16string_view Nearest(std::u16string_view text, std::span<const std::u16string_view> words) {
    constexpr std::size_t LongestWord = 40; // nobody mistypes that much, and the table stays small
    const std::u16string upper = UpperCase(TrimSpaces(text));
    std::u16string_view nearest;
    std::size_t least = std::max<std::size_t>(1, upper.size() / 3) + 1;
    if (upper.empty() || upper.size() > LongestWord) return nearest;
    for (const std::u16string_view word : words) {
        const std::size_t distance = EditDistance(upper, UpperCase(word));
        if (distance >= least) continue;
        least = distance;
        nearest = word;
    }
    return nearest;
}

} // namespace vantik

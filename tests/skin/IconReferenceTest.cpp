#include "skin/IconReference.h"

#include <doctest/doctest.h>

using namespace vantik;

namespace {

SkinIcons Named(std::initializer_list<const char16_t*> names) {
    SkinIcons icons;
    for (const char16_t* name : names) icons.Append().Name = name;
    return icons;
}

} // namespace

TEST_CASE("a tab's icon is the newest one of that name") {
    CHECK(ResolveIcon(Named({u"SUN", u"HANDNO"}), u"HANDNO") == 1);
    CHECK(ResolveIcon(Named({u"SUN", u"HANDNO", u"SUN"}), u"SUN") == 2);
}

TEST_CASE("a whole number that names no icon is a position in the list") {
    const SkinIcons icons = Named({u"SUN", u"HANDNO", u"0"});
    CHECK(ResolveIcon(icons, u"1") == 1);
    CHECK(ResolveIcon(icons, u"002") == 2);
    CHECK(ResolveIcon(icons, u"0") == 2); // a name goes before a position
}

TEST_CASE("anything else means no icon") {
    const SkinIcons icons = Named({u"SUN", u"", u"-1", u"SUN "});
    for (const char16_t* key :
         {u"", u"-1", u"4", u"1.0", u"+1", u" 1", u"&H1", u"MOON", u"32768", u"65536", u"99999999999"})
        CHECK(ResolveIcon(icons, key) == NoIcon);
}

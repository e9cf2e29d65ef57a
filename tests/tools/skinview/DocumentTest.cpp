#include "tools/skinview/model/Document.h"

#include <doctest/doctest.h>

using namespace vantik;

TEST_CASE("A change can be undone and done again") {
    Document document("one");
    document.Change("two");
    document.Change("three");
    document.Undo();
    CHECK(document.Bytes() == "two");
    document.Undo();
    CHECK(document.Bytes() == "one");
    CHECK_FALSE(document.CanUndo());
    document.Undo();
    CHECK(document.Bytes() == "one");
    document.Redo();
    document.Redo();
    CHECK(document.Bytes() == "three");
    CHECK_FALSE(document.CanRedo());
}

TEST_CASE("A change after an undo leaves nothing to do again") {
    Document document("one");
    document.Change("two");
    document.Undo();
    document.Change("other");
    CHECK_FALSE(document.CanRedo());
    document.Undo();
    CHECK(document.Bytes() == "one");
}

TEST_CASE("The steps of a drag are undone together, two drags are not") {
    Document document("0");
    document.Change("1", 7);
    document.Change("2", 7);
    document.Change("3", 8);
    document.Undo();
    CHECK(document.Bytes() == "2");
    document.Undo();
    CHECK(document.Bytes() == "0");
}

TEST_CASE("A drag that goes on after an undo is a step of its own") {
    Document document("0");
    document.Change("1", 7);
    document.Undo();
    document.Change("2", 7);
    document.Undo();
    CHECK(document.Bytes() == "0");
}

TEST_CASE("What changes nothing is no step") {
    Document document("one");
    document.Change("one");
    CHECK_FALSE(document.CanUndo());
}

TEST_CASE("A text is changed as long as it is not what was saved") {
    Document document("one");
    CHECK_FALSE(document.IsChanged());
    document.Change("two");
    CHECK(document.IsChanged());
    document.Undo();
    CHECK_FALSE(document.IsChanged());
    document.Redo();
    document.NoteSaved();
    CHECK_FALSE(document.IsChanged());
    document.Undo();
    CHECK(document.IsChanged());
}

TEST_CASE("What another program wrote is saved already, and undone like a change") {
    Document document("one");
    document.Change("mine");
    document.TakeFromDisk("theirs");
    CHECK(document.Bytes() == "theirs");
    CHECK_FALSE(document.IsChanged());
    document.Undo();
    CHECK(document.Bytes() == "mine");
    CHECK(document.IsChanged());
}

TEST_CASE("The places in the text are those of the text that stands") {
    Document document("Start\n[Tab]\n3: 1,2,3,4\n");
    CHECK(document.Text().EntryOf(3) != nullptr);
    document.Change("Start\n[Tab]\n4: 1,2,3,4\n");
    CHECK(document.Text().EntryOf(3) == nullptr);
    document.Undo();
    CHECK(document.Text().EntryOf(3) != nullptr);
}

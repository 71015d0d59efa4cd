#include <gtest/gtest.h>

#include <vector>

#include "models/shell/document_changes.h"

namespace mirvane {
namespace {

TEST(DocumentChanges, EveryListenerHearsUntilItStops) {
    DocumentChanges changes;
    std::vector<int> heard;
    const int first = changes.Listen([&](ChangeSet) { heard.push_back(1); });
    changes.Listen([&](ChangeSet what) { heard.push_back(what.Has(Change::Pois) ? 2 : -2); });
    changes.Tell(Change::Pois);
    changes.StopListening(first);
    changes.Tell(Change::Identity);
    changes.Tell(ChangeSet());  // nothing changed: nobody is told
    EXPECT_EQ(heard, (std::vector<int>{1, 2, -2}));
}

TEST(DocumentChanges, AListenerMayStopItselfOrAddAnotherWhileBeingTold) {
    DocumentChanges changes;
    int selfStopping = 0, added = 0, last = 0;
    int id = 0;
    id = changes.Listen([&](ChangeSet) {
        ++selfStopping;
        changes.StopListening(id);
        changes.Listen([&](ChangeSet) { ++added; });
    });
    changes.Listen([&](ChangeSet what) {
        ++last;
        if (last == 1) changes.Tell(Change::File);  // a listener that changes the document again
    });
    changes.Tell(Change::Polygons);
    EXPECT_EQ(selfStopping, 1);
    EXPECT_EQ(last, 2);
    EXPECT_EQ(added, 1);  // added during the first Tell, heard the nested one
}

}  // namespace
}  // namespace mirvane

#include "editors/method_dependencies.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace veldrane {
namespace {

KZMClass With(std::initializer_list<std::string> methods, std::initializer_list<std::string> events = {})
{
    KZMClass item;
    item.ClassName = "Order";
    for (const std::string& name : methods)
        item.TTCMethods.Add(name, true, {}, "", "Public", false, name);
    for (const std::string& name : events)
        item.TTCEvents.Add(name, {}, true, name);
    return item;
}

TEST(MethodDependencies, DependantsAreThoseThatTheClassHas)
{
    EXPECT_EQ(
        DependantsText(With({"Clear", "Retrieve", "Delete"}), {"Clear"}),
        "The Clear Method is needed by the Delete method.\r\nThe Clear Method is needed by the Retrieve method.\r\n");
    EXPECT_EQ(DependantsText(With({"Retrieve", "Update"}), {"Retrieve", "Add"}),
              "The Retrieve Method is needed by the Update method.\r\n");
    EXPECT_EQ(DependantsText(With({"Clear", "Clone"}), {"Clear", "Clone"}), "");
}

TEST(MethodDependencies, EachDeletionNotesTheEventThatGoesWithIt)
{
    const std::vector<std::pair<std::string, std::string>> cases{{"Add", "RecordAdded"},
                                                                 {"Delete", "RecordDeleted"},
                                                                 {"Retrieve", "RecordRetrieved"},
                                                                 {"Update", "RecordUpdated"}};
    for (const auto& [method, event] : cases) {
        EXPECT_EQ(DeletionText(With({method}, {event}), method),
                  "Are you sure you want to delete the '" + method + "' method from this class?\r\nThe " + event +
                      " plus event will also be removed because it is dependant on this method.");
        EXPECT_EQ(DeletionText(With({method}), method),
                  "Are you sure you want to delete the '" + method + "' method from this class?");
        EXPECT_EQ(EventOfMethod(method), event);
    }
    EXPECT_EQ(EventOfMethod("Clear"), "");
}

TEST(MethodDependencies, SubclassesNeedFiveMethodsOfTheirParent)
{
    const KZMClass parent = With({"Add", "Retrieve", "Clone", "Update", "Delete", "Clear", "Mine"});
    KZMClass child = With({"Add", "Clone"});
    child.ClassName = "Line";
    EXPECT_EQ(MissingMethodsText(parent, child), "The Retrieve method must be added to the Line class.\r\n"
                                                 "The Update method must be added to the Line class.\r\n"
                                                 "The Delete method must be added to the Line class.\r\n");
    EXPECT_EQ(MissingMethodsText(child, parent), "");
}

} // namespace
} // namespace veldrane

#include "window/descriptions/start_forms.h"

#include "persistence/start_up_demo.h"

namespace marvolin {

namespace {

constexpr Description kSplash[] = {
    {.Name = "frmSplash", .Label = "Marvolin", .Topic = 10060, .Role = QAccessible::Window},
};

constexpr Description kStartUpQuery[] = {
    {.Name = "frmStartUpQuery", .Topic = kStartUpQueryTopic, .Role = QAccessible::Dialog},
    {.Name = "cmdYes",
     .Caption = "Yes",
     .Hint = "clk Show the Demo at the next Start, too",
     .Topic = 10061,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
    {.Name = "cmdNo",
     .Caption = "No",
     .Hint = "clk Put the Demo away",
     .Topic = 10062,
     .Role = QAccessible::Button,
     .Taken = Keys::Press},
};

}  // namespace

std::span<const Description> SplashDescriptions() { return kSplash; }
std::span<const Description> StartUpQueryDescriptions() { return kStartUpQuery; }

}  // namespace marvolin

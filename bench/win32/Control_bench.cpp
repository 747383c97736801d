// The control against the system's own: names looked up, windows made and destroyed.
#include <cstdio>

#include "bench/Ratio.h"
#include "control/AutomationTable.h"
#include "control/ClassIds.h"
#include "tests/control/Container.h"

namespace veygrid::bench {

namespace {

double SecondsOfNames(IDispatch& control, std::string_view name, int count) {
    std::wstring spelling(name.begin(), name.end());
    LPOLESTR names = spelling.data();
    return Seconds([&] {
        for (int i = 0; i < count; ++i) {
            DISPID id = 0;
            control.GetIDsOfNames(IID_NULL, &names, 1, 0, &id);
            Keep(id);
        }
    });
}

// The last name of the table against its first.
void CompareNames() {
    constexpr int Count = 200000;
    constexpr double Limit = 1;
    const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
    ComPtr<IDispatch> dispatch;
    control.As(&dispatch);
    std::vector<double> first;
    std::vector<double> last;
    for (int round = 0; round < 5; ++round) {
        first.push_back(
            SecondsOfNames(*dispatch.Get(), VeyGridTable().Members().front().name, Count));
        last.push_back(
            SecondsOfNames(*dispatch.Get(), VeyGridTable().Members().back().name, Count));
    }
    const double ours = Median(last) / Count * 1e6;
    const double peer = Median(first) / Count * 1e6;
    std::printf("%-62s %9.3f us, peer %9.3f us, difference %.3f us (at most %g: %s)\n",
                "GetIDsOfNames of the last name, against the first", ours, peer, ours - peer, Limit,
                ours - peer <= Limit ? "reached" : "MISSED");
}

double SecondsOfControls(Container& container, int count) {
    return Seconds([&] {
        for (int i = 0; i < count; ++i) {
            const ComPtr<IUnknown> control = Ocx::Make(VeyGridClassId);
            container.Show(control);
            container.Close();
        }
    });
}

double SecondsOfEdits(HWND parent, int count) {
    return Seconds([&] {
        for (int i = 0; i < count; ++i) {
            ::DestroyWindow(::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 300,
                                              200, parent, nullptr, nullptr, nullptr));
        }
    });
}

void CompareCreation() {
    constexpr int Count = 300;
    Container container;
    SecondsOfControls(container, 3);
    Ratio("a control made, shown and destroyed, against an EDIT window", 5)
        .Run([&] { return SecondsOfControls(container, Count) / Count; },
             [&] { return SecondsOfEdits(container.Window(), Count) / Count; });
}

}  // namespace

}  // namespace veygrid::bench

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    ::OleInitialize(nullptr);
    veygrid::bench::CompareNames();
    veygrid::bench::CompareCreation();
    return 0;
}

#include "Class Files/score/document/FinPIMetricsCache.h"

#include <map>

#include "Class Files/foundation/DocumentScope.h"
#include "Class Files/foundation/FinPIException.h"
#include "Class Files/score/records/EnigmaRecords.h"
#include "shell/host/callbacks.h"

namespace FinPIMetricsCache {
namespace {

constexpr u16 kUnknown = 0xFFFF;

struct SpecialPartExtraction {
    u16 document = kUnknown;
    u16 staff = kUnknown;
    u16 result = 0;
    u16 staffList = kUnknown;  // item number, of the document
};

struct PageView {
    u16 document = kUnknown;
    u16 staff = kUnknown;
    u16 measure = kUnknown;
    u16 isShown = 1;

    bool IsOf(const MeasureKey& key) const noexcept {
        return document == key.document && staff == key.staff &&
               measure == static_cast<u16>(key.measure);
    }
};

std::map<EntryKey, ENTRYMETRICS> g_entryMetrics;
std::map<MeasureKey, void*> g_measureMetrics;
PageView g_pageView;
SpecialPartExtraction g_specialPartExtraction;

u16 LoadStaffList() {
    FinPIMiscDocPrefs prefs;
    if (prefs.Load() == 0) {
        PostRecordError<FinPILoadEDataFailed>(
            "unsigned short __cdecl FinPIMetricsCache::SpecPartExtractionCmper(const short)",
            prefs.Tag());
        return kUnknown;
    }
    return prefs.specialPartExtractionList;
}

}  // namespace

EntryLookup FindEntryMetrics(const EntryKey& key) {
    const auto [node, inserted] = g_entryMetrics.try_emplace(key);
    return {node->second, inserted};
}

void*& FindMeasureMetrics(const MeasureKey& key) {
    return g_measureMetrics[key];
}

void NotePageView(const MeasureKey& key, bool isShown) {
    g_pageView = {key.document, key.staff, static_cast<u16>(key.measure),
                  static_cast<u16>(isShown ? 1 : 0)};
}

bool IsShownInPageView(const MeasureKey& key) {
    return !g_pageView.IsOf(key) || g_pageView.isShown != 0;
}

u16 SpecPartExtractionCmper(u16 document, u16 staff) {
    SpecialPartExtraction& last = g_specialPartExtraction;
    const bool sameDocument = last.document == document;
    if (sameDocument && last.staff == staff) {
        return last.result;
    }
    const DocumentScope scope(document);
    if (!scope) {
        return 0;
    }
    if (!sameDocument || last.staffList == kUnknown) {
        last.staffList = LoadStaffList();
    }
    last.document = document;
    last.staff = staff;
    last.result = Host::InstToSlot(staff, last.staffList) != 0 ? 1 : 0;
    return last.result;
}

void ClearAll() {
    g_entryMetrics.clear();
    for (const auto& [key, metrics] : g_measureMetrics) {
        if (metrics != nullptr) {
            Host::FreeMeasureMetrics(metrics);
        }
    }
    g_measureMetrics.clear();
    g_pageView = {};
    g_specialPartExtraction = {};
}

}  // namespace FinPIMetricsCache

// What a program without a desktop decides instead of the user and Windows. There is one session
// per process: the tool or test and the plug-in it loads share it.
#pragma once

#include <cstdint>
#include <string>

namespace platform::headless {

enum class Language { kEnglish, kSpanish };

// Back to the start: Shift up, the environment's language, an empty registry, no timers,
// nothing hidden, nothing refused.
void Reset();

void HoldShift(bool down);

// Without a call, LC_ALL, LC_MESSAGES or LANG decides: es* is Spanish, all else English.
void SetLanguage(Language language);
Language CurrentLanguage();

// Keeps FindHostFunction from finding this export, as with an older host.
void HideHostFunction(const std::string& name);

// Calls the routine of every running timer once; returns the number called.
int FireTimers();
// No further timer can be started.
void RefuseTimers();

// Both text conversions fail from here on, or work again.
void RefuseTextConversions(bool refuse);

// The registry calls that can be refused.
enum class RegistryCall {
    kOpenKey,
    kCreateKey,
    kQueryValue,
    kSetValue,
    kDeleteValue,
    kEnumValue,
    kDeleteKey,
    kQueryInfo,
};
// The nth call (from 1) of this kind counted from now is refused with kAccessDenied; 0 ends it.
void RefuseRegistryCall(RegistryCall call, int nth);
// Of the calls of every kind counted from now, those from the first to the last one, counted from
// 1, are refused; 0 ends it.
void RefuseRegistryCalls(int first, int last);
// How many calls there were since then.
int RegistryCalls();
// Keys opened and not yet closed.
int OpenRegistryKeys();

}  // namespace platform::headless

// The host's progress display of one walk. Open from construction to destruction; the host is
// called once per interval of steps, to save time in large regions.
#pragma once

#include "shell/host/host_frames.h"

class ProgressCounter {
public:
    // workSize: measures * staves * layers of the walk.
    ProgressCounter(const EREGION& region, u64 workSize);
    ~ProgressCounter();
    ProgressCounter(const ProgressCounter&) = delete;
    ProgressCounter& operator=(const ProgressCounter&) = delete;

    // Later reports are counted, but not passed to the host.
    void Disable() noexcept { m_enabled = 0; }
    // False: the user stopped, now or before. Staff 0 and layer -1 = not given.
    bool Report(i16 steps, u16 staff, i16 measure, i16 layer);
    // The walk ran to its end; otherwise the display closes as stopped.
    void MarkFinished() noexcept { m_finished = true; }

    u64 Handle() const noexcept { return m_handle; }  // 0 = the host shows no display

    // Work that counts one more step of the report interval's growth.
    static constexpr u64 kWorkUnit = 600;

private:
    static constexpr u64 kBaseInterval = 11;
    static constexpr u64 kLargestInterval = 0x7000;  // the steps of a report are 16-bit

    i16 m_steps = 0;  // since the last report
    u64 m_handle;
    u64 m_reportInterval;
    u16 m_stopped = 0;
    u16 m_enabled = 1;
    bool m_finished = false;
};

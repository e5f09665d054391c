#include "Class Files/ProgressCounter.h"

#include <algorithm>

#include "shell/host/callbacks.h"

ProgressCounter::ProgressCounter(const EREGION& region, u64 workSize)
    : m_handle{Host::StartMassEdit(&region, i16{0})},
      m_reportInterval{std::min(kBaseInterval + 2 * (workSize / kWorkUnit), kLargestInterval)} {}

ProgressCounter::~ProgressCounter() {
    if (m_handle != 0) {
        Host::EndMassEdit(m_handle, static_cast<i16>(m_finished ? 0 : 1));
    }
}

bool ProgressCounter::Report(i16 steps, u16 staff, i16 measure, i16 layer) {
    if (m_stopped != 0) {
        return false;
    }
    m_steps = static_cast<i16>(m_steps + steps);
    if (static_cast<u64>(m_steps) < m_reportInterval) {
        return true;
    }
    const i16 counted = m_steps;
    m_steps = 0;
    if (m_enabled == 0 || m_handle == 0) {
        return true;
    }
    m_stopped = Host::MassEditProgress(m_handle, counted, staff, measure, layer) == 0 ? 1 : 0;
    return m_stopped == 0;
}

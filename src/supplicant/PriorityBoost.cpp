#include "supplicant/PriorityBoost.h"

#include <pthread.h>
#include <sched.h>

namespace platwifi {
namespace {

bool setPriority(int policy, int priority) noexcept {
    sched_param parameters{};
    parameters.sched_priority = priority;
    return pthread_setschedparam(pthread_self(), policy, &parameters) == 0;
}

} // namespace

PriorityBoost::PriorityBoost(int amount) noexcept {
    sched_param parameters{};
    if (pthread_getschedparam(pthread_self(), &m_policy, &parameters) != 0)
        return;
    m_before = parameters.sched_priority;
    if (m_before + amount <= sched_get_priority_max(m_policy))
        m_raised = setPriority(m_policy, m_before + amount);
}

PriorityBoost::~PriorityBoost() {
    if (m_raised)
        setPriority(m_policy, m_before);
}

} // namespace platwifi

#pragma once

namespace platwifi {

/// Raises the calling thread's scheduling priority for the duration of a scope. The priority stays
/// as it is where the sum would exceed the highest priority of the policy.
class PriorityBoost {
public:
    explicit PriorityBoost(int amount) noexcept;
    ~PriorityBoost();

    PriorityBoost(const PriorityBoost&) = delete;
    PriorityBoost& operator=(const PriorityBoost&) = delete;

private:
    int m_policy = 0;
    int m_before = 0;
    bool m_raised = false;
};

} // namespace platwifi

#pragma once

namespace platwifi {

/// Raises the calling thread's scheduling priority for the duration of a scope, unless that would
/// exceed the highest priority of its policy; then it stays as it is.
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

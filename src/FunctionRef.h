#pragma once

#include <type_traits>
#include <utility>

namespace platwifi {

template <typename Signature>
class FunctionRef;

/// A function that is passed down for the duration of a call, or none. Unlike std::function it holds no copy, and
/// costs the library no code for copying one.
template <typename Result, typename... Arguments>
class FunctionRef<Result(Arguments...)> {
public:
    FunctionRef() noexcept = default;

    /// @param function  must live as long as this object is called
    template <typename Function,
              typename = std::enable_if_t<!std::is_same_v<std::decay_t<Function>, FunctionRef>>>
    FunctionRef(Function&& function) noexcept // NOLINT: a lambda takes the place of a parameter
        : m_function(const_cast<void*>(static_cast<const volatile void*>(&function))),
          m_call([](void* called, Arguments... arguments) -> Result {
              return (*static_cast<std::remove_reference_t<Function>*>(called))(
                  std::forward<Arguments>(arguments)...);
          }) {}

    explicit operator bool() const noexcept { return m_function != nullptr; }

    Result operator()(Arguments... arguments) const {
        return m_call(m_function, std::forward<Arguments>(arguments)...);
    }

private:
    void* m_function = nullptr;
    Result (*m_call)(void*, Arguments...) = nullptr;
};

} // namespace platwifi

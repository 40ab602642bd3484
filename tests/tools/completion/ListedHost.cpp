#include "ListedHost.h"

namespace test {

// In the client's notation.
ListedHost::ListedHost() {
    answers({"home", "My Net", "$HOME", "Bob's \\\"Net\\\"", "back\\\\slash", "Caf\\xc3\\xa9",
             "bang!all", "a=b@c", "`id`;&|", "bad\\xff", "tilde~(x)*", "-dash", "end "});
}

} // namespace test

#pragma once

#include <functional>

/// What the session's replies cause above the protocols. Installed once at start; a hook that isn't
/// set does nothing.
struct SessionHooks {
    std::function<void()> loginSucceeded; ///< the server has accepted the login
    std::function<void()> loginRefused;   ///< wrong name or password
    std::function<void()> loginCompleted; ///< the login's last reply has told who we are
    std::function<void()> lockOpened;     ///< the password of the screen lock was right
    std::function<void()> closeProgram;   ///< the logout that leaves the program is through
};

/// The installed hooks.
SessionHooks& sessionHooks();

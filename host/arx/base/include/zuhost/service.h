#pragma once

namespace zuhost {

/// A pointer-like constant for a service of the host. The service is created on first use, so that static
/// objects of modules can use it, and lives as long as the process.
template <typename T, T& (*get)()>
class Service {
public:
    T* operator->() const { return &get(); }
    operator T*() const { return &get(); }
};

} // namespace zuhost

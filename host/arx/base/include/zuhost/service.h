#pragma once

namespace zuhost {

/// Stands for a service of the host under its interface name, used like a pointer. The service is made on
/// first use, so that it is there for the static objects of modules too, and it lives as long as the process.
template <typename T, T& (*get)()>
class Service {
public:
    T* operator->() const { return &get(); }
    operator T*() const { return &get(); }
};

} // namespace zuhost

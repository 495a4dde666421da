#include "zuhost/application.h"

#include <utility>

namespace zuhost {

namespace {

Application& current() {
    static Application names;
    return names;
}

} // namespace

void setApplication(Application application) {
    current() = std::move(application);
}

const Application& application() {
    return current();
}

} // namespace zuhost

#include "zuhost/string_pool.h"

#include <algorithm>

namespace {

/// An array in the memory of a pool, followed by its first elements.
class PooledArray final : public CStringArray {
public:
    static std::unique_ptr<CStringArray> make(zuhost::TextPool& pool, int room) {
        void* const memory =
            pool.allocate(sizeof(PooledArray) + static_cast<std::size_t>(room) * sizeof(CString));
        return std::unique_ptr<CStringArray>(new (memory) PooledArray(room));
    }

    static void* operator new(std::size_t /*size*/, void* place) { return place; }
    static void operator delete(void* memory) { zuhost::TextPool::release(memory); }

private:
    explicit PooledArray(int room) : CStringArray(this + 1, room) {}
};

} // namespace

std::unique_ptr<CStringArray> zuhost::StringPool::makeArray(int room) {
    constexpr int kLongestPooled = 500;
    if (room <= kLongestPooled)
        return PooledArray::make(pool_, std::max(room, 0));
    auto array = std::make_unique<CStringArray>();
    array->SetSize(0, room);
    return array;
}

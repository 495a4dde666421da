#include "afxtempl.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <random>

namespace {

/// Runs the function; returns whether it throws the invalid-argument exception.
bool isRefused(const std::function<void()>& function) {
    try {
        function();
    } catch (CInvalidArgException* error) {
        error->Delete();
        return true;
    }
    return false;
}

/// Counts its instances, to find elements that are lost or destroyed twice.
struct Counted {
    explicit Counted(int number = 0) : value(number) { ++alive; }
    Counted(const Counted& other) : value(other.value) { ++alive; }
    Counted& operator=(const Counted& other) = default;
    ~Counted() { --alive; }
    bool operator==(const Counted& other) const { return value == other.value; }

    int value;
    static inline int alive = 0;
};

template <typename Array>
std::vector<int> valuesOf(const Array& array) {
    std::vector<int> values;
    values.reserve(static_cast<std::size_t>(array.GetSize()));
    for (int i = 0; i < array.GetSize(); ++i)
        values.push_back(array.GetAt(i).value);
    return values;
}

TEST(Collections, ArraysDoWhatVectorsDo) {
    {
        std::mt19937 random(11); // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
        const auto below = [&random](int end) { return std::uniform_int_distribution<>(0, end - 1)(random); };
        CArray<Counted, const Counted&> array;
        std::vector<int> model;
        for (int step = 0; step < 3000; ++step) {
            const int size = static_cast<int>(model.size());
            const auto at = [&model](int index) { return model.begin() + index; };
            switch (below(9)) {
            case 0:
            case 1:
                EXPECT_EQ(array.Add(Counted(step)), size);
                model.push_back(step);
                break;
            case 2: {
                const int index = below(size + 3); // also beyond the end
                const int count = below(4);
                array.InsertAt(index, Counted(step), count);
                model.resize(static_cast<std::size_t>(std::max(size, index)));
                model.insert(at(index), static_cast<std::size_t>(count), step);
                break;
            }
            case 3: {
                const int index = below(size + 1);
                const int count = std::min(below(4), size - index);
                array.RemoveAt(index, count);
                model.erase(at(index), at(index + count));
                break;
            }
            case 4:
                array.SetSize(size / 2 + below(5), below(3) - 1);
                model.resize(static_cast<std::size_t>(array.GetSize()));
                break;
            case 5:
                array.SetAtGrow(size + below(3), Counted(step));
                model.resize(static_cast<std::size_t>(array.GetSize()));
                model.back() = step;
                break;
            case 6:
                if (size > 0) { // an element of the array itself
                    const int index = below(size);
                    array.InsertAt(0, array[index], 2);
                    model.insert(model.begin(), 2, model[static_cast<std::size_t>(index)]);
                    array.Add(array[0]);
                    model.push_back(model.front());
                }
                break;
            case 7:
                if (size < 50) {
                    EXPECT_EQ(array.Append(array), size);
                    model.insert(model.end(), model.begin(), model.begin() + size);
                }
                break;
            default:
                array.FreeExtra();
                array.Copy(array);
                break;
            }
            ASSERT_EQ(valuesOf(array), model) << step;
            ASSERT_EQ(Counted::alive, array.GetSize()) << step;
            if (model.size() > 400) {
                array.RemoveAll();
                model.clear();
            }
        }
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST(Collections, ArraysRefuseIndicesOutOfRange) {
    CArray<int> array;
    array.SetSize(3);
    const CArray<int>& constant = array;
    for (const int bad : {-1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        SCOPED_TRACE(bad);
        EXPECT_TRUE(isRefused([&] { static_cast<void>(constant.GetAt(bad)); }));
        EXPECT_TRUE(isRefused([&] { static_cast<void>(constant[bad]); }));
        EXPECT_TRUE(isRefused([&] { array[bad] = 1; }));
        EXPECT_TRUE(isRefused([&] { array.SetAt(bad, 1); }));
        EXPECT_EQ(isRefused([&] { array.RemoveAt(bad, 0); }), bad != 3) << "nothing at the end";
    }
    EXPECT_TRUE(isRefused([&] { array.RemoveAt(1, 3); }));
    EXPECT_TRUE(isRefused([&] { array.RemoveAt(1, std::numeric_limits<int>::max()); }));
    EXPECT_TRUE(isRefused([&] { array.RemoveAt(0, -1); }));
    EXPECT_TRUE(isRefused([&] { array.InsertAt(-1, 1); }));
    EXPECT_TRUE(isRefused([&] { array.InsertAt(0, 1, -1); }));
    EXPECT_TRUE(isRefused([&] { array.SetSize(-1); }));
    EXPECT_TRUE(isRefused([&] { array.SetAtGrow(-1, 1); }));
    EXPECT_TRUE(isRefused([&] { array.SetAtGrow(std::numeric_limits<int>::max(), 1); }));
    EXPECT_EQ(array.GetUpperBound(), 2);
}

template <typename List>
std::vector<int> forwards(const List& list) {
    std::vector<int> values;
    for (POSITION place = list.GetHeadPosition(); place != nullptr;)
        values.push_back(list.GetNext(place).value);
    return values;
}

TEST(Collections, ListsDoWhatQueuesDo) {
    {
        std::mt19937 random(12); // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
        const auto below = [&random](int end) { return std::uniform_int_distribution<>(0, end - 1)(random); };
        CList<Counted, const Counted&> list;
        std::deque<int> model;
        for (int step = 0; step < 2000; ++step) {
            const int size = static_cast<int>(model.size());
            const int index = size > 0 ? below(size) : 0;
            const POSITION place = list.FindIndex(index);
            ASSERT_EQ(place != nullptr, size > 0);
            switch (below(8)) {
            case 0:
                list.AddHead(Counted(step));
                EXPECT_EQ(list.GetHead().value, step);
                model.push_front(step);
                break;
            case 1:
                list.AddTail(Counted(step));
                EXPECT_EQ(list.GetTail().value, step);
                model.push_back(step);
                break;
            case 2:
                list.InsertBefore(place, Counted(step));
                model.insert(model.begin() + index, step);
                break;
            case 3:
                list.InsertAfter(place, Counted(step));
                model.insert(model.begin() + (size > 0 ? index + 1 : 0), step);
                break;
            case 4:
                if (size > 0) {
                    EXPECT_EQ(list.GetAt(place).value, model[static_cast<std::size_t>(index)]);
                    list.RemoveAt(place);
                    model.erase(model.begin() + index);
                }
                break;
            case 5:
                if (size > 1) {
                    EXPECT_EQ(list.RemoveHead().value, model.front());
                    EXPECT_EQ(list.RemoveTail().value, model.back());
                    model.pop_front();
                    model.pop_back();
                }
                break;
            case 6:
                if (size > 0) {
                    list.SetAt(place, Counted(step));
                    model[static_cast<std::size_t>(index)] = step;
                    EXPECT_EQ(list.Find(Counted(step)), place);
                    EXPECT_EQ(list.Find(Counted(step), place), nullptr);
                }
                break;
            default:
                if (size > 0 && size < 40) { // the list itself is added once
                    list.AddTail(&list);
                    list.AddHead(&list);
                    const std::deque<int> before = model;
                    model.insert(model.end(), before.begin(), before.end());
                    const std::deque<int> twice = model;
                    model.insert(model.begin(), twice.begin(), twice.end());
                }
            }
            ASSERT_EQ(forwards(list), std::vector<int>(model.begin(), model.end())) << step;
            std::vector<int> backwards;
            for (POSITION at = list.GetTailPosition(); at != nullptr;)
                backwards.push_back(list.GetPrev(at).value);
            ASSERT_EQ(backwards, std::vector<int>(model.rbegin(), model.rend())) << step;
            ASSERT_EQ(Counted::alive, list.GetCount());
            if (model.size() > 200) {
                list.RemoveAll();
                model.clear();
            }
        }
    }
    EXPECT_EQ(Counted::alive, 0);
    CList<int, int> empty;
    EXPECT_TRUE(isRefused([&] { static_cast<void>(empty.GetTail()); }));
    EXPECT_TRUE(isRefused([&] { empty.RemoveHead(); }));
    EXPECT_TRUE(isRefused([&] { empty.RemoveAt(nullptr); }));
    EXPECT_TRUE(isRefused([&] { empty.SetAt(nullptr, 1); }));
    POSITION none = nullptr;
    EXPECT_TRUE(isRefused([&] { empty.GetNext(none); }));
    EXPECT_EQ(empty.FindIndex(-1), nullptr);
}

TEST(Collections, TablesDoWhatMapsDo) {
    std::mt19937 random(13); // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
    const auto below = [&random](int end) { return std::uniform_int_distribution<>(0, end - 1)(random); };
    CMap<CString, LPCTSTR, int, int> table;
    std::map<std::wstring, int> model;
    for (int step = 0; step < 4000; ++step) {
        const std::wstring key = L"key " + std::to_wstring(below(40));
        switch (below(5)) {
        case 0:
            table.SetAt(key.c_str(), step);
            model[key] = step;
            break;
        case 1:
            table[key.c_str()] += 1;
            model[key] += 1;
            break;
        case 2:
            EXPECT_EQ(table.RemoveKey(key.c_str()) != FALSE, model.erase(key) > 0);
            break;
        case 3: {
            int value = -1;
            const auto found = model.find(key);
            EXPECT_EQ(table.Lookup(key.c_str(), value) != FALSE, found != model.end());
            EXPECT_EQ(value, found != model.end() ? found->second : -1);
            break;
        }
        default:
            if (step % 7 == 0) { // removes every second pair while it goes on
                bool removes = false;
                for (POSITION place = table.GetStartPosition(); place != nullptr; removes = !removes) {
                    CString current;
                    int value = 0;
                    table.GetNextAssoc(place, current, value);
                    ASSERT_EQ(model.at(current.GetString()), value);
                    if (removes) {
                        EXPECT_TRUE(table.RemoveKey(current));
                        model.erase(current.GetString());
                    }
                }
            }
        }
        ASSERT_EQ(table.GetCount(), static_cast<int>(model.size())) << step;
    }
    std::map<std::wstring, int> seen;
    for (auto* pair = table.PGetFirstAssoc(); pair != nullptr; pair = table.PGetNextAssoc(pair))
        seen[pair->key.GetString()] = pair->value;
    EXPECT_EQ(seen, model) << "each pair once";
    POSITION none = nullptr;
    CString key;
    int value = 0;
    EXPECT_TRUE(isRefused([&] { table.GetNextAssoc(none, key, value); }));
    EXPECT_TRUE(isRefused([&] { static_cast<void>(table.PGetNextAssoc(nullptr)); }));
    table.RemoveAll();
    EXPECT_EQ(table.GetStartPosition(), nullptr);
    EXPECT_EQ(table.PGetFirstAssoc(), nullptr);
}

TEST(Collections, TypedPointersKeepTheirType) {
    struct Item : CObject {
        explicit Item(int number) : value(number) {}
        int value;
    };
    Item first(1);
    Item second(2);
    CTypedPtrArray<CObArray, Item*> array;
    EXPECT_EQ(array.Add(&second), 0);
    array.InsertAt(0, &first);
    EXPECT_EQ(array[0]->value + 10 * array.GetAt(1)->value, 21);
    array.ElementAt(0) = &second;
    array.SetAtGrow(3, &first);
    EXPECT_EQ(array[0], &second);
    EXPECT_EQ(array[2], nullptr);
    CTypedPtrArray<CObArray, Item*> copy;
    copy.Copy(array);
    EXPECT_EQ(copy.Append(array), 4);
    EXPECT_EQ(copy[7]->value, 1);

    CTypedPtrList<CObList, Item*> list;
    list.AddTail(&first);
    list.AddHead(&second);
    EXPECT_EQ(list.GetHead()->value, 2);
    POSITION place = list.GetHeadPosition();
    EXPECT_EQ(list.GetNext(place)->value, 2);
    EXPECT_EQ(list.GetAt(place)->value, 1);
    list.SetAt(place, &second);
    EXPECT_EQ(list.RemoveTail(), &second);
    EXPECT_EQ(list.GetCount(), 1);
}

} // namespace

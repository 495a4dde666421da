#include "arxutil.h"

#include <dbmain.h>
#include <dbobjptr.h>
#include <zuhost/extended_data.h>
#include <zuhost/result_chain.h>
#include <zuhost/texts.h>

#include <string>
#include <vector>

namespace {

constexpr short kApplicationName = 1001;
constexpr short kText = 1000;
constexpr int kUsualTexts = 24; ///< Most records have fewer.

using Chain = zuhost::ResultChain;

/// Appends items to a new or an existing chain.
class ChainBuilder {
public:
    explicit ChainBuilder(Chain chain) : chain_(std::move(chain)) {
        for (resbuf* item = chain_.get(); item != nullptr; item = item->rbnext)
            last_ = item;
    }

    void addText(short type, const wchar_t* text) {
        resbuf* const item = acutNewRb(type);
        acutNewString(text, item->resval.rstring);
        if (last_ != nullptr)
            last_->rbnext = item;
        else
            chain_.reset(item);
        last_ = item;
    }

    [[nodiscard]] resbuf* chain() const { return chain_.get(); }

private:
    Chain chain_;
    resbuf* last_ = nullptr;
};

bool registerApplication(const AcDbObject& object, const wchar_t* application) {
    AcDbDatabase* const database = object.database();
    if (database == nullptr)
        return true;
    const Acad::ErrorStatus status = acdbRegApp(database, application);
    return status == Acad::eOk || status == Acad::eDuplicateRecordName || status == Acad::eDuplicateKey;
}

/// Returns the application's data; only the application's name when the object has none.
ChainBuilder dataOf(const AcDbObject& object, const wchar_t* application) {
    ChainBuilder data{Chain(object.xData(application))};
    if (data.chain() == nullptr)
        data.addText(kApplicationName, application);
    return data;
}

int store(AcDbObject& object, const ChainBuilder& data) {
    return object.setXData(data.chain()) == Acad::eOk ? 0 : -1;
}

} // namespace

int ApiComn_appendAttributes(AcDbObject* object, const wchar_t* application, int registering, int itemKind,
                             const wchar_t* text) {
    if (object == nullptr || application == nullptr || text == nullptr || itemKind != APICOMN_TEXT_ITEM)
        return -1;
    if (!object->isWriteEnabled() ||
        (registering == APICOMN_REGISTER && !registerApplication(*object, application)))
        return -1;
    ChainBuilder data = dataOf(*object, application);
    data.addText(kText, text);
    return store(*object, data);
}

int ApiComn_appendAttributesArray(AcDbObject* object, const wchar_t* application, const CStringArray& texts) {
    if (object == nullptr || application == nullptr)
        return -1;
    std::vector<std::wstring_view> views;
    views.reserve(static_cast<std::size_t>(texts.GetSize()));
    for (int i = 0; i < texts.GetSize(); ++i)
        views.emplace_back(texts[i].GetString());
    Acad::ErrorStatus status = zuhost::setExtendedTexts(*object, application, views);
    if (status == Acad::eRegappIdNotFound && registerApplication(*object, application))
        status = zuhost::setExtendedTexts(*object, application, views);
    return status == Acad::eOk ? 0 : -1;
}

int ApiComn_appendAttributesArray(AcDbObjectId id, const wchar_t* application, const CStringArray& texts) {
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    return ApiComn_appendAttributesArray(object.object(), application, texts);
}

int ApiComn_extractAttributesArray(const AcDbObject* object, const wchar_t* application,
                                   CStringArray& texts) {
    texts.RemoveAll();
    if (object == nullptr || application == nullptr)
        return -1;
    const bool isThere =
        zuhost::visitExtendedData(*object, application, [&texts](short type, std::wstring_view text) {
            if (type != kText)
                return true;
            if (texts.IsEmpty())
                texts.SetSize(0, kUsualTexts); // one allocation where growing takes several
            texts.Add(zuhost::textOf(text));
            return true;
        });
    return isThere ? 0 : -1;
}

int ApiComn_extractAttributesArrayID(AcDbObjectId id, const wchar_t* application, CStringArray& texts) {
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForRead);
    return ApiComn_extractAttributesArray(object.object(), application, texts);
}

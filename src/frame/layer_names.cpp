#include "layer_names.h"

#include "library_text.h"
#include "reset.h"

#include <zucomn/frame.h>

#include <vector>

CString ZUCONECT_LAYER = L"_ZU_CONNECT";
CString ZULENGTH_LAYER = L"_ZU_LENGTH";
CString ZUHIDE_LAYER = L"_ZU_HIDE";
CString ZUPRIMARY_LAYER = L"_ZU_RECOVER";
CString STANDPIPE_LAYER = L"_ZU_VERT";
CString ZUSHELTER_LAYER = L"_ZU_TEMP";
CString ZUBASIS_LAYER = L"_ZU_基準線";
CString ZUSERVICESPACE_LAYER = L"_ZU_SSPACE";
CString ZUSNAP_LAYER = L"_ZU_SNAP";
CString ZUARRANGE_LAYER = L"_ZU_EQUIPORG";
CString ZUSUBHIDE_LAYER = L"_ZU_SUBHIDE";
CString ZUCENTERLINE_LAYER = L"_ZU_中心線";
CString ZUANNO_LAYER = L"_ZU_配線サイズ";
CString ZUANNOSIZE_LAYER = L"_ZU_経路サイズ";
CString ZUANNOFL_LAYER = L"_ZU_高さ";
CString ZUANNOVARIOUS_LAYER = L"_ZU_用途";
CString ZUUNDRAW_LAYER = L"_ZU_RESERVE";
CString ZUSLENDER_LAYER = L"_ZU_細線";
CString ZUSLOPE_LAYER = L"_ZU_SLOPE";
CString ZUBOXSLOPE_LAYER = L"_ZU_BOXSLOPE";
CString ZULIGHTING_LAYER = L"_ZU_LIGHTING";
CString ZUAUXLINE_LAYER = L"_ZU_作図線";
CString ZUTABLE_TEXTLAYER = L"_ZU_作表文字";
CString ZUTABLE_LAYER = L"_ZU_作表枠";
CString ZUNOTE_LAYER = L"_ZU_凡例記入";
CString ZUDIM_LAYER = L"_ZU_寸法線";
CString ZUDIMTEXT_LAYER = L"_ZU_寸法文字";
CString ZUHIDEMARK_LAYER = L"_ZU_HIDEMARK";
CString ZUMSECTION_LAYER = L"_ZU_MASU_SECTION";
CString ZUMAINTE_LAYER = L"_ZU_MAINTE";
CString ZUOTHERS_LAYER = L"_ZU_OTHERS";
CString DXF_STANDPIPE_LAYER = L"立管";
CString ZURTSIGN_LAYER = L"_ZU_経路記号";
CString ZUWM_1_1_LAYER = L"_ZU_1_1";
CString ZUWM_1_200_LAYER = L"_ZU_1_200";
CString ZUWM_1_500_LAYER = L"_ZU_1_500";
CString ZUWM_16_1_LAYER = L"_ZU_細線_1";
CString ZUWM_16_200_LAYER = L"_ZU_細線_200";
CString ZUWM_16_500_LAYER = L"_ZU_細線_500";

namespace {

struct NamedLayer {
    CString* name;
    unsigned textId;
};

const NamedLayer kLayers[] = {
    {&ZUCONECT_LAYER, 101},      {&ZULENGTH_LAYER, 102},       {&ZUHIDE_LAYER, 103},
    {&ZUPRIMARY_LAYER, 104},     {&STANDPIPE_LAYER, 105},      {&ZUSHELTER_LAYER, 106},
    {&ZUBASIS_LAYER, 107},       {&ZUSERVICESPACE_LAYER, 108}, {&ZUSNAP_LAYER, 109},
    {&ZUARRANGE_LAYER, 110},     {&ZUSUBHIDE_LAYER, 111},      {&ZUCENTERLINE_LAYER, 112},
    {&ZUANNO_LAYER, 113},        {&ZUANNOSIZE_LAYER, 114},     {&ZUANNOFL_LAYER, 115},
    {&ZUANNOVARIOUS_LAYER, 116}, {&ZUUNDRAW_LAYER, 117},       {&ZUSLENDER_LAYER, 118},
    {&ZUSLOPE_LAYER, 119},       {&ZUBOXSLOPE_LAYER, 120},     {&ZULIGHTING_LAYER, 121},
    {&ZUAUXLINE_LAYER, 122},     {&ZUTABLE_TEXTLAYER, 123},    {&ZUTABLE_LAYER, 124},
    {&ZUNOTE_LAYER, 125},        {&ZUDIM_LAYER, 126},          {&ZUDIMTEXT_LAYER, 127},
    {&ZUHIDEMARK_LAYER, 128},    {&ZUMSECTION_LAYER, 129},     {&ZUMAINTE_LAYER, 130},
    {&ZUOTHERS_LAYER, 131},      {&DXF_STANDPIPE_LAYER, 132},  {&ZURTSIGN_LAYER, 210},
};

/// Returns the initial values of the variables.
std::vector<CString> defaultNames() {
    std::vector<CString> names;
    for (const NamedLayer& layer : kLayers)
        names.push_back(*layer.name);
    return names;
}

const std::vector<CString> kDefaultNames = defaultNames();

} // namespace

void zu::resetLayerNames() {
    auto name = kDefaultNames.begin();
    for (const NamedLayer& layer : kLayers)
        *layer.name = *name++;
}

void zu::reloadLayerNames() {
    for (const NamedLayer& layer : kLayers)
        *layer.name = libraryText(layer.textId);
}

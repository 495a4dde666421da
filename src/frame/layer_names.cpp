#include "layer_names.h"

#include "module_state.h"
#include "resource_ids.h"
#include "zucomn/frame.h"

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
    UINT textId;
    const wchar_t* builtIn;
};

const NamedLayer kLayers[] = {
    {&ZUCONECT_LAYER, 101, L"_ZU_CONNECT"},
    {&ZULENGTH_LAYER, 102, L"_ZU_LENGTH"},
    {&ZUHIDE_LAYER, 103, L"_ZU_HIDE"},
    {&ZUPRIMARY_LAYER, 104, L"_ZU_RECOVER"},
    {&STANDPIPE_LAYER, 105, L"_ZU_VERT"},
    {&ZUSHELTER_LAYER, 106, L"_ZU_TEMP"},
    {&ZUBASIS_LAYER, 107, L"_ZU_基準線"},
    {&ZUSERVICESPACE_LAYER, 108, L"_ZU_SSPACE"},
    {&ZUSNAP_LAYER, 109, L"_ZU_SNAP"},
    {&ZUARRANGE_LAYER, 110, L"_ZU_EQUIPORG"},
    {&ZUSUBHIDE_LAYER, 111, L"_ZU_SUBHIDE"},
    {&ZUCENTERLINE_LAYER, 112, L"_ZU_中心線"},
    {&ZUANNO_LAYER, 113, L"_ZU_配線サイズ"},
    {&ZUANNOSIZE_LAYER, 114, L"_ZU_経路サイズ"},
    {&ZUANNOFL_LAYER, 115, L"_ZU_高さ"},
    {&ZUANNOVARIOUS_LAYER, 116, L"_ZU_用途"},
    {&ZUUNDRAW_LAYER, 117, L"_ZU_RESERVE"},
    {&ZUSLENDER_LAYER, 118, L"_ZU_細線"},
    {&ZUSLOPE_LAYER, 119, L"_ZU_SLOPE"},
    {&ZUBOXSLOPE_LAYER, 120, L"_ZU_BOXSLOPE"},
    {&ZULIGHTING_LAYER, 121, L"_ZU_LIGHTING"},
    {&ZUAUXLINE_LAYER, 122, L"_ZU_作図線"},
    {&ZUTABLE_TEXTLAYER, 123, L"_ZU_作表文字"},
    {&ZUTABLE_LAYER, 124, L"_ZU_作表枠"},
    {&ZUNOTE_LAYER, 125, L"_ZU_凡例記入"},
    {&ZUDIM_LAYER, 126, L"_ZU_寸法線"},
    {&ZUDIMTEXT_LAYER, 127, L"_ZU_寸法文字"},
    {&ZUHIDEMARK_LAYER, 128, L"_ZU_HIDEMARK"},
    {&ZUMSECTION_LAYER, 129, L"_ZU_MASU_SECTION"},
    {&ZUMAINTE_LAYER, 130, L"_ZU_MAINTE"},
    {&ZUOTHERS_LAYER, 131, L"_ZU_OTHERS"},
    {&DXF_STANDPIPE_LAYER, 132, L"立管"},
    {&ZURTSIGN_LAYER, 210, L"_ZU_経路記号"},
};

} // namespace

void zu::reloadLayerNames() {
    for (const NamedLayer& layer : kLayers) {
        CString text;
        ZuComn_LoadString(ZuComn_GetResource(), layer.textId, text);
        *layer.name = text.IsEmpty() ? CString(layer.builtIn) : text;
    }
}

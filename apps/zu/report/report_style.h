#pragma once

namespace zu::app {

/// The style sheet of reports.
constexpr const char* kReportStyle = R"css(
:root{--ground:#fff;--ink:#1d2126;--faint:#5c6670;--rule:#d9dee3;--error:#b3261e;--warning:#8a5a00;--tint:#f4f6f8;--mark:#fff}
@media screen and (prefers-color-scheme:dark){:root{--ground:#16191d;--ink:#e8eaed;--faint:#a5adb6;--rule:#343a41;--error:#ff8a80;--warning:#ffca5c;--tint:#20242a;--mark:#16191d}}
*{box-sizing:border-box}
body{margin:0 auto;max-width:72rem;padding:1rem;background:var(--ground);color:var(--ink);font:1rem/1.5 system-ui,"Noto Sans CJK JP","Hiragino Sans","Yu Gothic UI",IPAexGothic,sans-serif;overflow-wrap:anywhere}
h1{font-size:1.5rem;margin:.5rem 0}h2{font-size:1.15rem;margin:2rem 0 .5rem}h3{font-size:1rem;margin:1rem 0 .25rem}
a{color:inherit}.faint{color:var(--faint);font-size:.875rem;margin:.25rem 0}.error{color:var(--error)}.warning{color:var(--warning)}
article+article{border-top:2px solid var(--rule);margin-top:3rem;padding-top:1rem}
figure{margin:1rem 0;border:1px solid var(--rule)}.sheet{position:relative}.sheet img{display:block;width:100%;height:auto}
.mark{position:absolute;transform:translate(-50%,-50%) translate(0,-1.3em);min-width:1.6em;padding:0 .3em;border-radius:1em;background:currentColor;font-size:.75rem;line-height:1.6;text-align:center;white-space:nowrap}
.mark>span{color:var(--mark)}.mark a{text-decoration:none}.mark:focus-within{outline:3px solid var(--ink);z-index:1}.mark:has(:target){outline:3px solid var(--ink);z-index:1}
.findings{list-style:none;margin:0;padding:0}.findings li{border-top:1px solid var(--rule);padding:.4rem .25rem .4rem 3rem;position:relative;scroll-margin:1rem}
.findings .number{position:absolute;left:.25rem;font-weight:600;min-width:2rem;text-align:right}.findings li:target{background:var(--tint)}
.table{overflow-x:auto}table{border-collapse:collapse;width:100%;font-size:.9375rem}
th,td{border-top:1px solid var(--rule);padding:.25rem .5rem;text-align:left;vertical-align:top;overflow-wrap:normal}th{color:var(--faint);font-weight:600}
td.amount,th.amount{text-align:right;font-variant-numeric:tabular-nums;white-space:nowrap}
@media(max-width:40rem){.mark{font-size:.625rem}body{padding:.75rem}}
@media print{body{max-width:none;padding:0;font-size:10pt}article+article{break-before:page;border:0;margin:0}figure,.findings li,tr{break-inside:avoid}h2,h3{break-after:avoid}thead{display:table-header-group}.sheet img{max-height:190mm;width:auto;max-width:100%}.sheet{width:fit-content;margin:auto}.mark,.findings{print-color-adjust:exact;-webkit-print-color-adjust:exact}.table{overflow:visible}a{text-decoration:none}@page{margin:15mm}}
)css";

} // namespace zu::app

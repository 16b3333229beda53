"""How the page looks: on light and dark screens, narrow ones, and on paper."""

STYLE = """\
:root{--paper:#fbfaf7;--card:#fff;--ink:#191817;--soft:#6b6761;--rule:#e3dfd7;--accent:#c8401f;--wash:#f2efe9}
@media (prefers-color-scheme:dark){:root{--paper:#131211;--card:#1a1918;--ink:#f1ede6;--soft:#a19a90;
--rule:#312e2b;--accent:#ff8a63;--wash:#211f1d}}
*{box-sizing:border-box}
html{-webkit-text-size-adjust:100%;text-size-adjust:100%}
body{margin:0;background:var(--paper);color:var(--ink);
font:15px/1.55 "Inter","Helvetica Neue",Helvetica,Arial,"Liberation Sans","DejaVu Sans",sans-serif;
font-variant-numeric:tabular-nums}
main{max-width:1180px;margin:0 auto;padding:0 40px}
p,h1,h2,h3,figure,dl,dd,ul{margin:0;padding:0}
ul{list-style:none}
b{font-weight:600}
.face{font-family:"Reported",sans-serif;font-kerning:normal;font-weight:400;font-synthesis:none}
.note,dt,.kicker,h3,th,footer{color:var(--soft);font-size:13px;font-weight:400}
.cover{padding:56px 0 0}
.kicker{letter-spacing:.08em;text-transform:uppercase;font-size:12px}
h1{font-weight:400;line-height:1.12;margin:28px 0 44px;overflow-wrap:anywhere}
h1{font-size:calc(min(100vw - 80px,1100px)*var(--size))}
h1.plain{font-size:clamp(36px,6vw,72px);font-weight:600;letter-spacing:-.02em}
h1.face{font-synthesis:none}
dl{display:grid;grid-template-columns:repeat(auto-fill,minmax(235px,1fr));gap:18px 32px}
dl div{border-top:1px solid var(--rule);padding-top:8px;min-width:0}
dd{overflow-wrap:anywhere}
.figures{display:grid;grid-template-columns:repeat(6,1fr);margin-top:48px;border-top:2px solid var(--ink);
border-bottom:1px solid var(--rule)}
.figures div{padding:18px 12px 20px 0}
.figures b{display:block;font-size:30px;line-height:1.2;font-weight:400;letter-spacing:-.01em}
.figures span{color:var(--soft);font-size:13px}
section{display:grid;grid-template-columns:190px minmax(0,1fr);gap:0 40px;padding:72px 0 0}
section.wide{display:block;padding-top:64px}
section>header{border-top:2px solid var(--ink);padding-top:12px}
section>.body{border-top:1px solid var(--rule);padding-top:16px;min-width:0}
h2{font-size:18px;line-height:1.3;font-weight:600}
section .note{margin-top:8px}
h3{margin:32px 0 10px}
.large{font-size:calc(min(100vw - 80px,1100px)*var(--size));line-height:1.25;white-space:nowrap;
overflow:hidden;padding:.08em 0}
.sentences{font-size:clamp(22px,3.2vw,38px);line-height:1.4;margin-top:28px}
.sentences p+p{border-top:1px solid var(--rule);margin-top:14px;padding-top:14px}
.waterfall div{display:grid;grid-template-columns:38px minmax(0,1fr);align-items:baseline;
border-bottom:1px solid var(--rule)}
.waterfall span{color:var(--soft);font-size:12px}
.waterfall p{white-space:nowrap;overflow:hidden;line-height:1.4;
-webkit-mask:linear-gradient(90deg,#000 94%,transparent);mask:linear-gradient(90deg,#000 94%,transparent)}
svg{display:block;width:100%;fill:var(--ink)}
.frame{stroke:var(--rule);stroke-width:1px;vector-effect:non-scaling-stroke;fill:none}
.diagram{margin-bottom:32px}
.guide,.base{stroke:var(--accent);stroke-width:1px;vector-effect:non-scaling-stroke;stroke-dasharray:3 3}
.base{stroke-dasharray:none}
.diagram text{font-size:46px;fill:var(--ink)}
.diagram text.n{text-anchor:end;fill:var(--soft)}
table{border-collapse:collapse;width:100%}
th{text-align:left}
td,th{border-bottom:1px solid var(--rule);padding:6px 16px 6px 0;overflow-wrap:anywhere}
td.n,th.n{text-align:right;padding-right:0;white-space:nowrap}
.bar{display:block;width:100%;min-width:90px;height:6px;background:var(--wash)}
.bar::before,.spread i::before{content:"";display:block;height:100%;min-width:min(2px,calc(var(--share)*9999px));
width:calc(100%*var(--share));background:var(--accent)}
.chips{display:flex;flex-wrap:wrap;gap:6px}
.chips li{background:var(--wash);border-radius:3px;padding:3px 10px}
.nearly li{background:none;box-shadow:inset 0 0 0 1px var(--rule)}
.chips span{color:var(--soft)}
.pairs,.cards,.looks{display:grid;gap:1px;padding:1px}
.pairs{grid-template-columns:repeat(auto-fill,minmax(116px,1fr))}
.pairs>div,.cards>figure,.looks>figure{background:var(--card);min-width:0;overflow:hidden;
box-shadow:0 0 0 1px var(--rule)}
.pairs>div{padding:4px 10px 9px;text-align:center}
.pairs p{font-size:46px;line-height:1.5;white-space:pre}
.pairs svg{height:69px}
.pairs b{display:block;font-weight:400}
.names{color:var(--soft);font-size:11px;display:block;overflow:hidden;text-overflow:ellipsis;white-space:nowrap}
em{color:var(--accent);font-style:normal}
details{margin-top:20px}
summary{cursor:pointer;padding:8px 0}
.two{display:grid;grid-template-columns:minmax(0,1fr) minmax(0,1fr);gap:40px}
.prose p+p{margin-top:12px}
.spread h3{margin:2px 0 10px}
.spread div{display:grid;grid-template-columns:88px 1fr 46px;align-items:center;gap:10px;font-size:13px}
.spread i{height:14px;background:var(--wash)}
.spread b{text-align:right;font-weight:400}
.spread span{color:var(--soft)}
.looks{grid-template-columns:repeat(6,1fr)}
.looks .ink{fill:var(--rule)}
.looks .grid{stroke:var(--soft);stroke-opacity:.22;stroke-width:1px;vector-effect:non-scaling-stroke;fill:none}
.looks .line{stroke:var(--accent);stroke-width:1.25px;vector-effect:non-scaling-stroke;fill:none}
.looks .gap{stroke:var(--ink);stroke-width:1.5px;vector-effect:non-scaling-stroke}
.dot{fill:var(--ink)}
.key{color:var(--soft);font-size:13px;margin-top:10px}
.key i{display:inline-block;width:14px;height:10px;margin:0 4px 0 14px;background:var(--rule)}
.key i:first-child{margin-left:0}
.key .line{height:2px;vertical-align:4px;background:var(--accent)}
.key .dot{width:8px;height:8px;border-radius:4px;background:var(--ink)}
figcaption{display:flex;justify-content:space-between;gap:8px;padding:6px 10px 8px;font-size:12px}
figcaption b{font-weight:400}
.cards{grid-template-columns:repeat(auto-fill,minmax(128px,1fr))}
.cards svg{height:132px}
.cards figcaption{display:grid;grid-template-columns:auto 1fr auto;gap:0 8px;color:var(--soft);font-size:11px}
.cards bdi{grid-column:1/4;color:var(--ink);font-size:12px}
.cards figcaption span:nth-of-type(2){text-align:center}
bdi{overflow:hidden;text-overflow:ellipsis;white-space:nowrap}
b.bad,.warnings li::before{color:var(--accent)}
.warnings li{border-bottom:1px solid var(--rule);padding:6px 0}
.warnings li::before{content:"•";margin-right:10px}
.warnings bdi{font-weight:600}
footer{max-width:1180px;margin:72px auto 0;padding:18px 40px 48px}
@media (max-width:860px){main{padding:0 20px}h1,.large{font-size:calc((100vw - 40px)*var(--size))}section,.two{grid-template-columns:minmax(0,1fr)}
section>header{padding-bottom:12px}.figures,.looks{grid-template-columns:repeat(3,1fr)}footer{padding:18px 20px}}
@media print{@page{size:A4;margin:14mm}
:root{--paper:#fff;--card:#fff;--ink:#000;--soft:#555;--rule:#ccc;--accent:#b03010;--wash:#eee}
*{-webkit-print-color-adjust:exact;print-color-adjust:exact}
body{font-size:9.5pt}main{max-width:none;padding:0}.cover{padding-top:0}
section{display:block;padding-top:28px}section>header{margin-bottom:10px;break-after:avoid}
figure,.pairs>div,tr,li,.waterfall div,.spread,dl div{break-inside:avoid}
h1,.large{font-size:calc(180mm*var(--size))}h1.plain{font-size:40pt}
.cards{grid-template-columns:repeat(8,1fr)}.cards svg{height:22mm}.pairs{grid-template-columns:repeat(9,1fr)}
.pairs p{font-size:26pt}.looks{grid-template-columns:repeat(6,1fr)}footer{margin-top:20px;padding:0}}
"""

# The render_bench scene drawn by Mapnik: same counts, sizes and extent.
import math, random, time, mapnik
W, H, WEST, SOUTH, EW, EH = 1280, 800, -80.0, -30.0, 20.0, 12.5

def lines():
    r = random.Random(7)
    for i in range(100_000):
        x, y = r.uniform(WEST, WEST + EW), r.uniform(SOUTH, SOUTH + EH)
        pts = [(x, y)]
        for _ in range(9):
            x += r.uniform(-0.02, 0.02); y += r.uniform(-0.02, 0.02); pts.append((x, y))
        yield 'LINESTRING(' + ','.join('%r %r' % p for p in pts) + ')'

def polygons():
    r = random.Random(11)
    for i in range(20_000):
        cx, cy, rad = r.uniform(WEST, WEST + EW), r.uniform(SOUTH, SOUTH + EH), r.uniform(0.02, 0.08)
        pts = []
        for k in range(50):
            a, reach = 2 * math.pi * k / 50, rad * r.uniform(0.8, 1.0)
            pts.append((cx + reach * math.cos(a), cy + reach * math.sin(a)))
        pts.append(pts[0])
        yield 'POLYGON((' + ','.join('%r %r' % p for p in pts) + '))'

def scene(wkts, polygon):
    m = mapnik.Map(W, H, '+proj=longlat +datum=WGS84 +no_defs')
    m.background = mapnik.Color('white')
    rule = mapnik.Rule()
    if polygon:
        rule.symbols.append(mapnik.PolygonSymbolizer())
        rule.symbols[0].fill = mapnik.Color('#00c0c0')
    line = mapnik.LineSymbolizer()
    line.stroke = mapnik.Color('#404040' if not polygon else '#0000ff')
    line.stroke_width = 1.0
    line.rasterizer = mapnik.line_rasterizer.FAST
    rule.symbols.append(line)
    style = mapnik.Style(); style.rules.append(rule); m.append_style('s', style)
    ds = mapnik.MemoryDatasource(); ctx = mapnik.Context()
    for i, wkt in enumerate(wkts):
        f = mapnik.Feature(ctx, i + 1); f.geometry = mapnik.Geometry.from_wkt(wkt); ds.add_feature(f)
    layer = mapnik.Layer('l', '+proj=longlat +datum=WGS84 +no_defs'); layer.datasource = ds; layer.styles.append('s')
    m.layers.append(layer)
    return m

def timed(m, share, runs=5):
    cx, cy = WEST + EW / 2, SOUTH + EH / 2
    m.zoom_to_box(mapnik.Box2d(cx - EW * share / 2, cy - EH * share / 2, cx + EW * share / 2, cy + EH * share / 2))
    im = mapnik.Image(W, H)
    mapnik.render(m, im)
    best = []
    for _ in range(runs):
        t = time.perf_counter(); mapnik.render(m, im); best.append(time.perf_counter() - t)
    best.sort()
    return best[len(best) // 2] * 1000

for name, make, polygon in (('polylines', lines, False), ('polygons', polygons, True)):
    m = scene(make(), polygon)
    print('%s whole %.1f ms, tenth %.1f ms' % (name, timed(m, 1.0), timed(m, 0.1)))

# The United States demo: counties filled and outlined, states outlined over
# them, from the same us-atlas file the demo store is built from, on an
# equal-area cone, in the view of the conterminous states.
import json, os, sys
ATLAS = os.path.join(os.path.dirname(__file__), '..', 'build', 'demo-data', 'node_modules', 'us-atlas', 'counties-10m.json')
ALBERS = '+proj=aea +lat_1=29.5 +lat_2=45.5 +lat_0=23 +lon_0=-96 +datum=NAD83 +units=m +no_defs'
LONGLAT = '+proj=longlat +datum=WGS84 +no_defs'

def topology_rings(topology, name):
    (sx, sy), (tx, ty) = topology['transform']['scale'], topology['transform']['translate']
    arcs = []
    for arc in topology['arcs']:
        x = y = 0; points = []
        for dx, dy in arc:
            x += dx; y += dy; points.append((x * sx + tx, y * sy + ty))
        arcs.append(points)
    def ring(indices):
        points = []
        for i in indices:
            part = arcs[i] if i >= 0 else arcs[~i][::-1]
            points.extend(part if not points else part[1:])
        return '(' + ','.join('%r %r' % p for p in points) + ')'
    for shape in topology['objects'][name]['geometries']:
        polygons = shape['arcs'] if shape['type'] == 'MultiPolygon' else [shape['arcs']] if shape['type'] == 'Polygon' else []
        if polygons:
            yield 'MULTIPOLYGON(' + ','.join('(' + ','.join(ring(r) for r in p) + ')' for p in polygons) + ')'

def us_layer(m, wkts, symbols, name):
    rule = mapnik.Rule()
    for symbol in symbols:
        rule.symbols.append(symbol)
    style = mapnik.Style(); style.rules.append(rule); m.append_style(name, style)
    ds = mapnik.MemoryDatasource(); ctx = mapnik.Context()
    for i, wkt in enumerate(wkts):
        f = mapnik.Feature(ctx, i + 1); f.geometry = mapnik.Geometry.from_wkt(wkt); ds.add_feature(f)
    layer = mapnik.Layer(name, LONGLAT); layer.datasource = ds; layer.styles.append(name)
    m.layers.append(layer)

def us_map():
    topology = json.load(open(ATLAS))
    m = mapnik.Map(W, H, ALBERS)
    m.background = mapnik.Color('white')
    fill = mapnik.PolygonSymbolizer(); fill.fill = mapnik.Color('#66c2a5')
    thin = mapnik.LineSymbolizer(); thin.stroke = mapnik.Color('#808080'); thin.stroke_width = 1.0
    heavy = mapnik.LineSymbolizer(); heavy.stroke = mapnik.Color('#000000'); heavy.stroke_width = 1.0
    us_layer(m, topology_rings(topology, 'counties'), (fill, thin), 'counties')
    us_layer(m, topology_rings(topology, 'states'), (heavy,), 'states')
    box = mapnik.ProjTransform(mapnik.Projection(LONGLAT), mapnik.Projection(ALBERS)).forward(
        mapnik.Box2d(-125.0, 24.0, -66.5, 49.5))
    m.zoom_to_box(box)
    im = mapnik.Image(W, H)
    mapnik.render(m, im)
    times = []
    for _ in range(5):
        t = time.perf_counter(); mapnik.render(m, im); times.append(time.perf_counter() - t)
    times.sort()
    return times[2] * 1000

if os.path.exists(ATLAS):
    print('united_states counties and states, antialiased %.1f ms' % us_map())
else:
    print('united_states: no us-atlas in build/demo-data (run scripts/run.sh once)', file=sys.stderr)

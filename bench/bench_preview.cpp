// Composing the "Superposition" preview, and the icons view of a document
// with thousands of objects: building its thumbnails, drawing a visible band
// and placing and hitting every icon.
#include <benchmark/benchmark.h>

#include "models/preview/icons_view_model.h"
#include "models/preview/preview_model.h"

namespace {

using namespace mirvane;

ObjectPreview Picture(ObjectKind kind, int width, int height) {
    ObjectPreview preview;
    preview.Kind = kind;
    preview.Picture.Width = width;
    preview.Picture.Height = height;
    const std::size_t count = static_cast<std::size_t>(width) * height;
    for (std::size_t i = 0; i < count; ++i) {
        const auto colour = static_cast<std::int32_t>(i * 2654435761u & 0xFFFFFF);
        preview.Picture.Day.push_back(i % 3 ? colour : kTransparentPixel);
        preview.Picture.Night.push_back(colour ^ 0x00FF00);
    }
    return preview;
}

void BM_ComposeSuperposition(benchmark::State& state) {
    ObjectPreviewModel model;
    model.Pick(Picture(ObjectKind::Polygon, 32, 32));
    model.Pick(Picture(ObjectKind::Polyline, 32, 8));
    model.Pick(Picture(ObjectKind::Poi, 64, 64));
    model.SetMode(PreviewMode::Superposition);
    for (auto _ : state) {
        model.Update();
        benchmark::DoNotOptimize(model.Apercus(1).Pixels().data());
    }
}
BENCHMARK(BM_ComposeSuperposition);

Document SolidObjects(int count) {
    Document doc;
    for (int i = 0; i < count; ++i) {
        PolygonRecord polygon;
        polygon.Type = "001";
        polygon.SubType = "00";
        polygon.Flags = 0x01;
        polygon.ColourBytes = {static_cast<std::uint8_t>(i), 0x20, 0x40, 0x60, 0x80, 0xA0};
        doc.Polygons.push_back(polygon);
    }
    return doc;
}

void BM_IconsRebuild(benchmark::State& state) {
    Document doc = SolidObjects(static_cast<int>(state.range(0)));
    IconsViewModel view;
    view.Toggle();
    view.SetPictureWidth(800);
    for (auto _ : state) {
        view.Rebuild(doc, 0xFFFFFF);
        benchmark::DoNotOptimize(view.PictureHeight());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_IconsRebuild)->Arg(5000)->Unit(benchmark::kMillisecond);

void BM_IconsBand(benchmark::State& state) {
    Document doc = SolidObjects(static_cast<int>(state.range(0)));
    IconsViewModel view;
    view.Toggle();
    view.SetPictureWidth(800);
    view.Rebuild(doc, 0xFFFFFF);
    const int middle = view.PictureHeight() / 2;
    for (auto _ : state) benchmark::DoNotOptimize(view.RenderBand(middle, 600).Pixels().data());
}
BENCHMARK(BM_IconsBand)->Arg(5000);

void BM_IconsLayoutAndHitTest(benchmark::State& state) {
    const IconCounts counts{static_cast<int>(state.range(0)), 0, 0};
    const IconGrid grid{kIconMarginDefault, kIconZoomDefault, 800};
    for (auto _ : state) {
        long long hits = 0;
        for (int number = 0; number < counts.Total(); ++number) {
            const RasterRect place = IconPlacement(grid, number, 32, 32, 3);
            hits += IconAt(grid, counts, place.Left + 1, place.Top + 1).has_value();
        }
        benchmark::DoNotOptimize(hits);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_IconsLayoutAndHitTest)->Arg(5000);

}  // namespace

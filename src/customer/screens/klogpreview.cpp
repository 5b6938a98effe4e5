#include "customer/screens/klogpreview.h"

namespace customer {
namespace {

PreviewPlace placeOf(const Settings& settings)
{
    return {settings.previewOnTop == 1, settings.previewLeft, settings.previewTop,
            settings.previewWidth, settings.previewHeight};
}

void savePlace(CustomerFile& file, const PreviewPlace& place)
{
    saveSettings(file,
                 {{&Settings::previewOnTop, place.onTop ? 1 : 0},
                  {&Settings::previewLeft, static_cast<int>(place.left)},
                  {&Settings::previewTop, static_cast<int>(place.top)},
                  {&Settings::previewWidth, static_cast<int>(place.width)},
                  {&Settings::previewHeight, static_cast<int>(place.height)}});
}

} // namespace

klogpreview::klogpreview(CustomerFile& file, const Settings& settings, QWidget* parent)
    : logpreview(
        file.messages, placeOf(settings),
        [&file](const PreviewPlace& place) { savePlace(file, place); }, parent)
{
}

} // namespace customer

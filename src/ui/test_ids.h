#pragma once

class QApplication;

namespace ui {

// With CORVANE_TEST_IDS=1 in the environment: gives every widget "#" + its object name as
// accessible description when it is first shown, so that a program outside can find each control.
void offerTestIds(QApplication& application);

} // namespace ui

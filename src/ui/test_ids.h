#pragma once

class QApplication;
class QString;
class QWidget;

namespace ui {

// With CORVANE_TEST_IDS=1 in the environment: gives every widget "#" + its object name as
// accessible description when it is first shown, so that a program outside can find each control.
void offerTestIds(QApplication& application);

// Gives a widget an accessible description that may change while it is seen; the ID stays before
// it.
void describe(QWidget& widget, const QString& description);

} // namespace ui

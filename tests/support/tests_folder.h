#pragma once

#include <QString>

// The checkout's folder of tests, for the files that lie beside them.
QString testsFolder();

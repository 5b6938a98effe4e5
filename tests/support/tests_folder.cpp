#include "support/tests_folder.h"

QString testsFolder()
{
    return QStringLiteral(CORVANE_TESTS_DIR);
}

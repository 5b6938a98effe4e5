#include "storage/engine/engine.h"
#include "storage_contract/scratch_file.h"

storage::engine::Engine& engineUnderTest()
{
    return storage::engine::embedded();
}

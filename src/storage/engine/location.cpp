#include "storage/engine/location.h"

#include "storage/engine/engine.h"

namespace storage {

engine::Engine& Location::engine() const
{
    return m_keeper ? *m_keeper : engine::embedded();
}

} // namespace storage

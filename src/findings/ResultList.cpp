#include "findings/ResultList.h"

namespace pryvane {

void ResultList::append(std::shared_ptr<Spyware> record)
{
    m_locations.insert(record->url.identity());
    m_records->push_back(std::move(record));
}

void ResultList::clear()
{
    m_locations.clear();
    m_records = std::make_shared<SpywareList>();
}

} // namespace pryvane

#include <MLCore/datetime/CCALENDARMANAGER.h>

#include <MLCore/datetime/CCALENDARFRENCHSTRATEGY.h>

namespace MLCore {

MLCORE_DEFINE_INSTANCE(CSINGLETON<CCALENDARMANAGER, autorelease>)

CCALENDARMANAGER::CCALENDARMANAGER() : mCalendar(CCALENDARFRENCHSTRATEGY::Create()) {}

CCALENDARMANAGER::~CCALENDARMANAGER() = default;

CCALENDARSTRATEGY* CCALENDARMANAGER::GetCalendar() const { return mCalendar; }

void CCALENDARMANAGER::SetCalendar(CCALENDARSTRATEGY& calendar) { mCalendar = &calendar; }

CCALENDARSTRATEGY& CCALENDARMANAGER::Resolve(CCALENDARSTRATEGY* strategy) {
    return strategy != nullptr ? *strategy : *GetInstance()->GetCalendar();
}

}  // namespace MLCore

#include "vm/dialogs/JsServiceVm.h"

#include "common/GlobalConfig.h"

bool JsServiceVm::isComplete(int overFlg, int serviceType, const QString& staffNo, const QString& pushNo) const
{
    const PlanConfigDto* plan = GlobalConfig::getInstance()->planConfig();
    const bool needsPusher = plan && plan->isPush() == 1;
    return require(overFlg >= 0, "请选择工作状态") && require(serviceType >= 0, "请选择上钟类型") &&
           require(!staffNo.isEmpty(), "请选择技师工号") &&
           require(!needsPusher || !pushNo.isEmpty(), "请选择派钟人");
}

#include "common/RightsData.h"

namespace Rights {

// Behind each rule stands the code of its right; six of the rights have none.
// clang-format off
const Rule rules[ruleCount] = {
    {"/bca01/batchUpdateOrder", "405761091685322753", "isNormal", "1", "mode", "0"}, // 0201
    {"/bca01/batchUpdateOrder", "405761142306377733", "isDel", "1", "mode", "0"}, // 0202
    {"/bca01/batchUpdateOrder", "405761200963719170", "isGive", "1", "mode", "0"}, // 0203
    {"/bca01/batchUpdateOrder", "408988480980652033", "isNormal", "1", "mode", "1"}, // 0121
    {"/bca01/batchUpdateOrder", "406393311726931972", "isDel", "1", "mode", "3"}, // 0520
    {"/bba01/chgCleanRoom", "405759269277011969", "isClean", "0"}, // 0115
    {"/bba01/chgCleanRoom", "405759234552369154", "isClean", "1"}, // 0114
    {"/bda02/startServerWithoutOrder", "405787820965498883"}, // 0336
    {"/bfa01/serveDishes", "406051333508173827"}, // no code
    {"/baa01/setHardCardStatus", "418837594555813892", "type", "1"}, // no code
    {"/baa01/setHardCardStatus", "405755454901456898", "type", "2"}, // 0008
    {"/baa01/setHardCardStatus", "405755518017343489", "type", "3"}, // 0009
    {"/baa01/setHardCardStatus", "433941744780054530", "type", "4"}, // 0021
    {"/baa01/setHardCardStatus", "433941821837807618", "type", "5"}, // 0022
    {"/baa01/setHardCardStatus", "415436544800985090", "type", "6"}, // 0019
    {"/baa01/setHardCardStatus", "422054394764464131", "type", "7"}, // 0020
    {"/baa01/setHardCardStatus", "405755140911665154", "type", "8"}, // 0006
    {"/baa01/setHardCardStatus", "405755564590895106", "type", "9"}, // 0010
    {"/bda02/workOvertime", "405775400750551045"}, // 0313
    {"/bea01/changeItem", "408995877421846531", "checkMode", "2"}, // 0123
    {"/bea01/changeItem", "406083424325210116", "checkMode", "3"}, // 0517
    {"/bea01/settleAccount", "406079721400700929", "type", "1"}, // 0501
    {"/bea01/settleAccount", "406079758860029954", "type", "10"}, // 0502
    {"/bea01/settleAccount", "406083251922538497", "payType", "13"}, // 0533
    {"/bea01/getSaleCoupons", "419544017195503618"}, // no code
    {"/baa01/setLimitRemark", "405755396311224323", "checkMode", "1"}, // 0007
    {"/baa01/setLimitRemark", "405761871859421188", "checkMode", "2"}, // 0017
    {"/bda02/changeAssignRoom", "405782071304523779"}, // 0322
    {"/bda02/punchRecord", "405789012022005763", "punchStatus", "0"}, // 0339
    {"/bda02/punchRecord", "405788956757856258", "punchStatus", "1"}, // 0338
    {"/bda02/endOvertime", "405788700754317317"}, // 0337
    {"/bca01/batchUpdateRoomOrder", "418097899945332740", "isNormal", "1", "mode", "1"}, // 0168
    {"/bca01/batchUpdateRoomOrder", "418098003150376961", "isDel", "1", "mode", "1"}, // 0169
    {"/bca01/batchUpdateRoomOrder", "419172939348578306", "isGive", "1", "mode", "1"}, // 0170
    {"/bca01/batchUpdateRoomOrder", "418098003150376961", "isDel", "1", "mode", "3"}, // 0169
    {"/bea01/getMemberInfo", "406047507724111874"}, // 0603
    {"/bda02/reserve/getReserveListNew", "409007056600961029"}, // 0335
    {"/bea01/getPayInfoRecords", "406081501060665346"}, // 0510
    {"/baa01/editAchiMan", "405757027912257541", "checkMode", "1"}, // 0014
    {"/baa01/editAchiMan", "408994268751073282", "checkMode", "2"}, // 0208
    {"/baa01/editAchiMan", "409021238020935682", "checkMode", "3"}, // 0525
    {"/baa01/editPkgCards", "405755913397604356", "checkMode", "1"}, // 0013
    {"/baa01/editPkgCards", "408993957793763329", "checkMode", "2"}, // 0207
    {"/baa01/editPkgCards", "409020871279382530", "checkMode", "3"}, // 0524
    {"/bba01/changeRoom", "418838415448215554"}, // no code
    {"/bda02/assignOrder", "408987832256040962", "checkMode", "1"}, // 0120
    {"/bda02/assignOrder", "405774079054057476", "checkMode", "2"}, // 0301
    {"/bda02/assignOrder", "405787146840182786", "checkMode", "3"}, // 0326
    {"/bda02/endServer", "405774559473831939"}, // 0304
    {"/bda02/changeServer", "405775476587761665"}, // 0314
    {"/bda02/changeCard", "405775602253303810"}, // 0316
    {"/bba01/getRoomChgLogList", "406096283281133572"}, // 0165
    {"/bba01/cancelRoom", "418838253703270403"}, // no code
    {"/baa01/changeHardCard", "418837804078075905"}, // no code
};
// clang-format on

} // namespace Rights

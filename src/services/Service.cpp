#include "services/Service.h"

BaseRequest Service::request(NetMethod method, const char* path, Fields data, const Params& params) const
{
    return {method, m_prefix + QLatin1String(path), params, {}, data};
}

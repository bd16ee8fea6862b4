#pragma once

#include "common/Singleton.h"

/// Start-up's hold on the services as a whole. Each of them is made at its first use, so there is nothing to
/// prepare.
class ServicesRegister : public Singleton<ServicesRegister>
{
public:
    void init() {}

private:
    friend class Singleton<ServicesRegister>;
    ServicesRegister() = default;
};

#pragma once

class RegistroSchermi;

// The screens of the coupons of the week: the three coupons, the manual update, the quotas.
class MdiSchedine {
public:
    static void registra(RegistroSchermi &pannello);
};

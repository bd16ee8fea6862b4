#pragma once

#include "vm/module2/SellSumModels.h"
#include "vm/shared/Catalogue.h"
#include "vm/shared/ReaderListener.h"

/// What was sold in a time range, by area.
class SellSumVm : public ActionVm
{
    Q_OBJECT
    PROPERTY(QString, startTime, setStartTime, {}) // "yyyy-MM-dd HH:mm:ss", at first the business day's start
    PROPERTY(QString, endTime, setEndTime, {})     // likewise, at first now
    PROPERTY(bool, isLocal, setIsLocal, false)     // this terminal only
    PROPERTY(bool, isOneItem, setIsOneItem, false) // equal lines in one
    PROPERTY(bool, isBtnEnabled, setIsBtnEnabled, true) // false during a query
    CONSTANT_PROPERTY(SellSumModel*, pSellSumModel, m_areas)
    PROPERTY(QString, staffNo, setStaffNo, {}) // empty: not narrowed to a person
    CONSTANT_PROPERTY(AreaListModel*, pAreaModel, m_departments)
    PROPERTY(QString, areaId, setAreaId, {}) // empty: not narrowed to an area

public:
    explicit SellSumVm(QObject* parent = nullptr);

    /// With neither person nor area the operator's own sales.
    Q_INVOKABLE void query();
    /// Prints what the last query brought.
    Q_INVOKABLE void print();

private:
    QJsonObject request() const;

    SellSumModel* m_areas;
    AreaListModel* m_departments;
    ReaderListener m_staffReader{this}; ///< a staff card has no effect while the report is open
};

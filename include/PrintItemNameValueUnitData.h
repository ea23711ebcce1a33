// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_PRINTITEMNAMEVALUEUNITDATA_H
#define BRIMVALE_PRINTITEMNAMEVALUEUNITDATA_H

#include "IPrintItemNameValueUnitData.h"
#include "SharedLibsGlobal.h"

#include <QObject>
#include <QString>

namespace Brimvale
{

/// The texts of `PrintItemNameValueUnit` items, which may share one object. A change shows with the next print.
class BRIMVALE_EXPORT PrintItemNameValueUnitData : public QObject, public IPrintItemNameValueUnitData
{
    Q_OBJECT
    Q_DISABLE_COPY(PrintItemNameValueUnitData)

public:
    /// Makes empty texts; `parent` owns the object.
    explicit PrintItemNameValueUnitData(QObject* parent);
    ~PrintItemNameValueUnitData() override;

    QString getCategory() const override;
    QString getName() const override;
    QString getDescription() const override;
    void setCategory(const QString& category) override;
    void setName(const QString& name) override;
    void setDescription(const QString& description) override;

private:
    QString m_category;
    QString m_name;
    QString m_description;
};

} // namespace Brimvale

#endif

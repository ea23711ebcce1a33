// SPDX-License-Identifier: BSD-3-Clause
#ifndef BRIMVALE_WEIGHINGPARAMETERS_H
#define BRIMVALE_WEIGHINGPARAMETERS_H

#include "IWeighingParameters.h"
#include "SharedLibsGlobal.h"

#include <QObject>

namespace Brimvale
{

class IMenuList;
class ISystem;

/// Switches the scale between the standard set of weighing parameters, the MSW set of the host and the stored ones.
///
/// A plug-in calls one `Init…` operation when its work begins and `ResetWeighingParameters()` when it ends. Host
/// objects are asked for anew on every single call. Every operation logs its name at debug level.
class BRIMVALE_EXPORT WeighingParameters : public QObject, public IWeighingParameters
{
    Q_OBJECT
    Q_DISABLE_COPY(WeighingParameters)
    Q_INTERFACES(Brimvale::IWeighingParameters)

public:
    /// `system` is the host and `menuList` the plug-in's menu, under whose file the parameters are stored; neither is
    /// owned, and both must outlive this object. `parent` owns it.
    WeighingParameters(QObject* parent, ISystem* system, IMenuList* menuList);
    ~WeighingParameters() override;

    bool InitStandardWeighingParameters() override;
    bool InitMSWWeighingParameters() override;

    /// Sets the four parameters to their stored values, empty texts where there is none, and the fixed range to the
    /// one that the latest `Init…` operation found. Without such an operation the fixed range is left alone. The
    /// profile name is not reset. Returns true.
    bool ResetWeighingParameters() override;

    /// Remembers the fixed range. The parameters are not saved: they are restored from what the host has stored.
    void SaveCurrentWeighingParameters();

    /// Sets range selection 0, the profile "standard" and the parameters 0, 1 and 3 to "normal". Parameter 2 is left
    /// as it is.
    void SetStandardWeighingParameters();

    /// Sets the four parameters to the host's MSW set, parameter 2 for the current range. Profile and range selection
    /// are left as they are.
    void SetMSWWeighingParameters();

private:
    ISystem* m_system;
    IMenuList* m_menuList;
    int m_savedFixRange = -2; ///< -2: none saved; -1 is a fixed range too
};

} // namespace Brimvale

#endif

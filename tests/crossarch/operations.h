// SPDX-License-Identifier: BSD-3-Clause
#ifndef OPERATIONS_H
#define OPERATIONS_H

class ResultTable;

// The operations of each part of the library.

void writeCore(ResultTable& table);
void writeUnits(ResultTable& table);
void writeStatistics(ResultTable& table);
void writeMeasuringSystem(ResultTable& table);
void writeProtocol(ResultTable& table);
void writeViewModels(ResultTable& table);

#endif

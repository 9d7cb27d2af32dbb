#pragma once

class AcDbDatabase;

/// Non-zero, with the factor between paper and drawing units, if the project states one for this
/// drawing; otherwise 0 and `scale` is left alone. The number is reserved.
int GetDrawingScale(double& scale, AcDbDatabase* database, int reserved);

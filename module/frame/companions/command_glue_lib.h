#pragma once

/// True when databases of drawings that no document shows come from OpenSharedDatabase.
bool IsSharedDatabaseMode();

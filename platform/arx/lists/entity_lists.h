// Entities and table records as lists of group codes, in the working database.
#pragma once
#include "platform/arx/base/ads.h"
#include "platform/arx/database/object_id.h"

/// RTERROR for a name that names nothing.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
Acad::ErrorStatus acdbGetAdsName(ads_name name, AcDbObjectId id);

/// The entity's groups: -1 its name, 0, 5, 330 and the markers as the platform gives them; points
/// as one element; without extended data. Null for an erased entity or a name that names nothing.
/// The caller releases the list with acutRelRb.
resbuf* acdbEntGet(const ads_name name);
/// Changes the entity named by the list's -1 to the list's groups. A group that the list lacks
/// keeps its value. RTREJ: locked layer, missing or empty layer or style name, height or width
/// factor not above 0, another type; RTERROR: no such entity.
int acdbEntMod(const resbuf* list);
/// Makes an entity of the list's groups, in any order, in the current space. Missing subclass
/// markers are added, a layer that the table lacks is made (color 7, continuous). An empty style
/// name means no style, which is Standard, unless the table has a text style of that name. RTREJ:
/// unknown type, missing style, no height or 0.
int acdbEntMake(const resbuf* list);
/// Erases the entity, or brings an erased one back. RTREJ on a locked layer, RTERROR for no entity.
int acdbEntDel(const ads_name name);
/// The newest entity of the drawing that isn't erased, attributes left out. RTERROR when there is
/// none.
int acdbEntLast(ads_name name);
/// The entity behind this one in the drawing, with attributes and the ends of sequences; a null or
/// nil name means the first. RTERROR at the end.
int acdbEntNext(const ads_name name, ads_name next);
/// The entity or object of a handle in hexadecimal. RTERROR.
int acdbHandEnt(const ACHAR* handle, ads_name name);

/// The groups of the record of this name in the table ("LAYER", "STYLE", "BLOCK", "LTYPE", "UCS",
/// "VIEW", "VPORT", "DIMSTYLE", "APPID"), or null. With setNext, acdbTblNext goes on behind it.
resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int setNext);
/// RTNORM for a name that a record of a symbol table may have, else RTERROR. With pipeTest a
/// vertical bar is no error; names from other drawings have one.
int acdbSNValid(const ACHAR* name, int pipeTest);
/// The next record of the table, from its first with rewind; null at the end.
resbuf* acdbTblNext(const ACHAR* table, int rewind);

// The public API of the JSON, diff and CSV library (persona::json, on nlohmann-json), with
// everything of <persona/persona.h>. Written by scripts/layers.py umbrella.
#pragma once

#include "io/json/personality_json.h"
#include "io/json/record_diff.h"
#include "io/json/record_json.h"
#include "persona/persona.h"

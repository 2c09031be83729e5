// The public API of the JSON, diff and CSV library (persona::json, on nlohmann-json), with
// everything of <persona/persona.h>. Written by scripts/layers.py umbrella.
#pragma once

#include <persona/io/csv/csv_columns.h>
#include <persona/io/csv/csv_text.h>
#include <persona/io/csv/set_csv.h>
#include <persona/io/json/f64_digits.h>
#include <persona/io/json/field_refs.h>
#include <persona/io/json/json_reader.h>
#include <persona/io/json/json_scanner.h>
#include <persona/io/json/json_writer.h>
#include <persona/io/json/personality_json.h>
#include <persona/io/json/record_diff.h>
#include <persona/io/json/record_json.h>
#include <persona/persona.h>

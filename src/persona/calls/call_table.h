// The report table that every call list prints: the set's heading line (its number and name),
// the column headings, one row per call and a closing empty line.
#pragma once

#include <initializer_list>

#include <persona/core/set.h>
#include <persona/core/set_helpers.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>

namespace persona {

// Appends "   <setNumber> - <set name>", the heading lines, row(position, call) for every call
// of class E (positions counted from 1 over the whole list), then an empty line; elementEnd is
// called after each row.
template <class E, class Row>
void PrintCallTable(CStringArray& out, int setNumber, const CSet& set,
                    std::initializer_list<CString> headings, Row row,
                    const ElementLinesEnd* elementEnd) {
  out.Add(CString::Formatted("   %-3d - %-12s", setNumber, set.Name().c_str()));
  for (const CString& heading : headings) out.Add(heading);
  int position = 0;
  for (CObject* obj : set.Elements()) {
    ++position;
    if (const E* call = set_helpers::As<E>(obj)) {
      out.Add(row(position, *call));
      EndElementLines(elementEnd, out);
    }
  }
  out.Add(CString());
}

}  // namespace persona

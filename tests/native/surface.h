/// What scripts can reach of the modules math3d and probe, found by walking them on a live state: every free function,
/// method, operator, getter and setter, each with lists of arguments that it takes, found by trying.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <lua.hpp>

namespace zeph::test {

/// Arguments to try. A number from kValues on is a fresh value of a class, by the class's place in the list of them.
enum Candidate : int { kKey = -1, kNumber, kText, kTrue, kNil, kValues };

struct Entry {
  std::string name;                     ///< "math3d.lerp", "Vector3.cross", "Vector3.yaw get", "RectF.min set"
  std::string module;                   ///< name of the module
  std::string owner;                    ///< name of the class in it; empty for a free function
  std::string key;                      ///< what stands in the table of the class or module
  std::string property;                 ///< of a getter or setter, whose key is "__index" or "__newindex"
  std::vector<std::vector<int>> calls;  ///< lists of arguments that succeed
};

struct Class {
  std::string module;
  std::string name;
  int maker = 0;               ///< the entry "new"
  int text = 0;                ///< the entry "__tostring"
  std::vector<int> getters;    ///< entries
  std::vector<int> arguments;  ///< that the maker takes
};

struct Surface {
  std::vector<Entry> entries;
  std::vector<Class> classes;

  /// Found once in a process, on a state of its own.
  static const Surface& get();
};

/// The surface on one state: its functions as they were when this was made, whatever a script puts in their place.
class LiveSurface {
 public:
  LiveSurface(lua_State* L, const Surface& surface);

  /// The functions take the state or coroutine to work on, and may raise errors where that runs out of memory.
  void push_function(lua_State* L, int entry) const;
  void push_class(lua_State* L, int number) const;
  /// A fresh value of the class: its numbers are 1, 2, 3 ...
  void push_value(lua_State* L, int number) const;
  /// A fresh argument for the entry.
  void push_argument(lua_State* L, int entry, int candidate) const;
  /// Pushes the function and the arguments of the list and calls it, protected. What comes of it stays on the stack.
  int call(lua_State* L, int entry, const std::vector<int>& arguments) const;

  /// The class whose values have the metatable that the value has, or -1.
  int class_of(lua_State* L, int index) const;
  /// A number that changes with what the value shows to scripts: its text and properties, and if `raw` is set the
  /// fields and metatable of a table too. Raises no error.
  std::uint64_t digest(lua_State* L, int index, bool raw) const;

 private:
  std::uint64_t digest(lua_State* L, int index, bool raw, int depth) const;

  const Surface& m_surface;
  std::vector<const void*> m_tables;  ///< of the classes
};

}  // namespace zeph::test

#include "probe.h"

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/platform/script_core/lua_engine.h>

namespace zeph::test {

int LuaProbe::live = 0;

namespace {

using namespace binding;
using V = math3d::_Vector3<float>;

Probe make_empty() { return {}; }
Probe make_copy(const Probe& probe) { return probe; }
Probe make_number(float number) { return {number, {}}; }

Probe plus(const Probe& a, const Probe& b) { return {a.number + b.number, a.place + b.place}; }
void set(Probe* self, float number) { self->number = number; }
void add(Probe& self, const Probe& other) { self.number += other.number; }
void place_at(Probe* self, const V& place) { self->place = place; }
void name(Probe* self, const char* text) { self->number = static_cast<float>(std::atof(text)); }
bool matches(Probe* self, const Probe& other, float tolerance) {
  return std::fabs(self->number - other.number) <= tolerance;
}

float get_number(const Probe& self) { return self.number; }
void set_number(Probe& self, float number) { self.number = number; }
V get_place(const Probe& self) { return self.place; }
void set_place(Probe& self, const V& place) { self.place = place; }
float get_double(const Probe& self) { return self.number * 2; }
Probe get_twin(const Probe& self) { return self; }

// Every kind of result.
AutoRef<Str> text(const Probe& self) {
  const float size = self.number > 0.0F && self.number < 1e4F ? self.number : 0.0F;
  return new Str(std::string(static_cast<std::size_t>(size), 'x'));
}
AutoRef<Table> table(const Probe& self) {
  auto* result = new Table;
  const AutoRef<Table> keep = result;
  Probe copy = self;
  V place = self.place;
  result->Set(1, self.number);
  result->Set(2, &place);
  result->Set(3, &copy);
  return keep;
}
AutoRef<Object> tuple(const Probe& self) {
  auto* result = new Tuple(3);
  const AutoRef<Object> keep = result;
  Probe copy = self;
  V place = self.place;
  result->Set(0, self.number);
  result->Set(1, &place);
  result->Set(2, &copy);
  return keep;
}
AutoRef<Object> nothing(const Probe&) { return new None; }
AutoRef<Str> dead(const Probe&) { return {}; }
Results<float, V, Probe> results(const Probe& self) { return {{self.number, self.place, self}}; }
Listing<0, V, float, Probe> listing(const Probe& self) { return {{self.place, self.number, self}}; }
std::optional<V> maybe(const Probe& self) { return self.number > 0 ? std::optional(self.place) : std::nullopt; }

// Every kind of optional and of integer.
Listing<1, int, unsigned, int> integers(int a, unsigned b, unsigned char c) { return {{a, b, static_cast<int>(c)}}; }
float optionals(float a, Nullable<int> b, Nullable<bool> c, const Nullable<V>& d) {
  return a + (b.has_value ? 10.0F * static_cast<float>(b.value) : 0.0F) +
         (c.has_value ? (c.value ? 1000.0F : 2000.0F) : 0.0F) + (d.has_value ? d.value.x : 0.0F);
}
float nullable_first(const V& a, Nullable<V> b, float c) { return a.x + (b.has_value ? b.value.x : 0.0F) + c; }

/// Changes two of its arguments, tables both.
void swap_vectors(V& a, V& b) { std::swap(a, b); }
/// Writes to the table of its object by itself.
void flush_by_engine(const V&, float x) {
  const V value{x, x, x};
  math3d::LuaVector3::FlushToDummyScriptObject(1, &value);
}

// clang-format off
using ProbeTable = ClassTable<
    Probe,
    Row<"new", Overload<Function<&make_empty>, Function<&make_copy>, Function<&make_number>>>,
    Row<"__add", Function<&plus>>,
    Row<"set", Method<&set>>,
    Row<"add", Method<&add>>,
    Row<"place_at", Method<&place_at>>,
    Row<"name", Method<&name>>,
    Row<"matches", Method<&matches>>,
    Row<"either", Overload<Method<&set>, Method<&place_at>>>,
    Row<"text", Function<&text>>,
    Row<"table", Function<&table>>,
    Row<"tuple", Function<&tuple>>,
    Row<"nothing", Function<&nothing>>,
    Row<"dead", Function<&dead>>,
    Row<"results", Function<&results>>,
    Row<"listing", Function<&listing>>,
    Row<"maybe", Function<&maybe>>,
    Property<"number", &get_number, &set_number>,
    Property<"twin", &get_twin>,
    MemberProperty<"place", &get_place, &set_place>,
    MemberProperty<"double", &get_double>,
    FieldProperty<"field", &Probe::number>>;
// clang-format on

// clang-format off
using ProbeFunctions = FunctionTable<
    Row<"integers", Function<&integers>>,
    Row<"optionals", Function<&optionals>>,
    Row<"nullable_first", Function<&nullable_first>>,
    Row<"swap_vectors", Function<&swap_vectors>>,
    Row<"flush_by_engine", Function<&flush_by_engine>>>;
// clang-format on

}  // namespace

void LuaProbe::InitializeLuaClass(lua_State* L) { ProbeTable::Register(L); }

int open_probe(lua_State* L) {
  zplua_initmodule(L, "probe");
  register_class<Probe>(L, "Sonde");
  ProbeFunctions::Register(L);
  lua_pushvalue(L, -1);
  zplua_endmodule(L, "probe");
  return 1;
}

}  // namespace zeph::test

template struct zeph::binding::TypeTraits<zeph::test::Probe>;

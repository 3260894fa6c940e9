---@meta math3d

-- What scripts see of the module, for the Lua language server: hover texts, completion, checks of calls.
-- tools/reference makes docs/reference.md from this file, and tests/lua/annotations_test.lua holds it against the live
-- module. What they rely on:
--
--   A text stands above what it is about, also above a field or an operator.
--   "(read-only)" begins the text of a property that cannot be assigned.
--   A name of the module in backquotes becomes a link in the reference.
--   `code --> text` in an example is run by the test, and has to give that text.
--   A plain comment that begins with "## " opens a family of free functions.

---3D game maths in single precision, for scripts.
---
---- **Axes**: +x right, +y up, +z forward; a left-handed frame.
---- **Angles** are radians, but for the argument of `radians` and the result of `degrees`. Positive yaw turns forward
---  to the right, positive pitch turns forward down, positive roll turns right up.
---- **Vectors are row vectors**, `v * m`, and in the product `a * b` of two matrices `a` applies first. Rows 0 to 2 of
---  a matrix are its right, up and forward axes, row 3 is its translation. In the product `a * b` of two rotations `b`
---  applies first.
---- **Numbers** become 32-bit floats on the way in; results are widened without change. A text that reads as a number
---  is one. Where an integer is needed, 2.0 is one and 2.5 is none, and the low 32 bits count.
---- **Free functions** give new values and never change an argument. A method that changes its object says so, and
---  gives nothing back; `Matrix:inverse` alone gives true.
---- **Errors** come from a wrong count or type of arguments, one argument too many included, and nothing has been
---  changed by then. No number is an error: what has no answer gives infinity, NaN or the case that is told.
---- **Tables and objects**: a `Matrix`, a `Matrix33` and an `Aabb` are userdata, values of all other classes are
---  tables. Both are shared by assignment: `local b = a` is no copy. `Vector3.new(a)` is one, and so with every class
---  but `Vector4`, `RectF` and `RectOffset`.
---@class math3d
math3d = {}

---@alias math3d.Vector math3d.Vector3
---@alias math3d.Vector4f math3d.Vector4
---@alias math3d.Quaternion math3d.Rotation

---Pi as the nearest float, 3.1415927410125732: a little more than `math.pi`.
---@type number
math3d.PI = 3.1415927410125732

---Half of `PI`, exactly.
---@type number
math3d.HALF_PI = 1.5707963705062866

---The tolerance of `==` on `Vector3`, `Rotation`, `Plane` and `Aabb`, per component: the float nearest to a millionth.
---@type number
math3d.EPSILON = 9.999999974752427e-07

---What values of all classes have. It is no class of its own: only the editor knows this name.
---@class math3d.Value
---Name of the native class, such as "class zeph::math3d::LuaVector3". The same in all values of a class.
---@field class_name string
---Name of the class: "Vector3", and "Vector4f" for `Vector4`. The same in all values of a class.
---@field lua_name string
local Value = {}

---Name of the value's class, the text of `lua_name`. It works on the class too: `math3d.Vector3:type()`.
---
---Raises an error for anything that is neither a value of the module nor a class.
---@nodiscard
---@return string
function Value:type() end

---Names of the value's class and of those that it is derived from, in a new list. All classes here stand alone, so it
---has one entry.
---@nodiscard
---@return string[]
function Value:mro() end

---The properties of the value's class, in a new table from name to whether it can be assigned. Fields of tables, such
---as `x` of a vector, are no properties.
---@nodiscard
---@return table<string,boolean>
function Value:getProperties() end

---What `tostring` and `print` show: the class and its numbers with six places. For people: it is cut at 99 characters,
---which takes huge numbers, that of a matrix at 199, and that of a matrix lacks its last parenthesis.
---@nodiscard
---@return string
function Value:__tostring() end

---A point or direction of the plane, with exact comparison and a `normalize` that has no guard.
---
---A table. A field that is missing or no number counts as 0.
---@class math3d.Vector2: math3d.Value
---First component.
---@field x number
---Second component. In a `RectF` it grows downwards.
---@field y number
---(read-only) `sqrt(x*x + y*y)`. Infinite where the square is no float any more, from a length of about 1.8e19 on.
---@field length number
---(read-only) `x*x + y*y`, without the root.
---@field length_sqr number
---(read-only) Both components are exactly 0, of either sign. A NaN component gives false. `Vector3` has a tolerance
---here.
---@field is_zero boolean
---Sum by components.
---@operator add(math3d.Vector2): math3d.Vector2
---Difference by components.
---@operator sub(math3d.Vector2): math3d.Vector2
---Product by components.
---@operator mul(math3d.Vector2): math3d.Vector2
---Both components times the number, which stands on the right: `2 * v` is an error.
---@operator mul(number): math3d.Vector2
---Quotient by components. Division by 0 gives infinity, 0 / 0 gives NaN.
---@operator div(math3d.Vector2): math3d.Vector2
---Both components divided by the number. Division by 0 gives infinity, 0 / 0 gives NaN.
---@operator div(number): math3d.Vector2
math3d.Vector2 = {}

---Makes a vector: of two components, of zeros without an argument, or a copy.
---@nodiscard
---@param x number
---@param y number
---@return math3d.Vector2
---@overload fun(): math3d.Vector2
---@overload fun(other: math3d.Vector2): math3d.Vector2
function math3d.Vector2.new(x, y) end

---`==`: both components are exactly equal; a NaN is equal to nothing. An error for a table that is no `Vector2`, false
---for what is no table.
---@nodiscard
---@param other math3d.Vector2
---@return boolean
---@see math3d.Vector3.__eq has a tolerance
function math3d.Vector2:__eq(other) end

---Changes the vector to (x, y).
---@param x number
---@param y number
function math3d.Vector2:set(x, y) end

---Dot product, `x*other.x + y*other.y`.
---@nodiscard
---@param other math3d.Vector2
---@return number
function math3d.Vector2:dot(other) end

---Changes the vector to its direction times `scale`, and gives nothing back: `v * (scale / v.length)`.
---
---A zero vector becomes NaN, whatever the scale: ask `is_zero` first. One shorter than about 3e-23 becomes infinite or
---NaN, a finite one longer than about 1.8e19 zeros, and an infinite component NaN.
---@param scale? number Length of the result; 1 if absent or nil. A negative one turns the vector round.
---@see math3d.Vector3.normalize leaves a zero vector alone
---@see math3d.Vector4.normalize gives a new vector
function math3d.Vector2:normalize(scale) end

---Changes the vector to the place `t` on the way from `a` to `b`: `(b - a) * t + a`. Its old value plays no part, and
---it may be `a` or `b`.
---@param a math3d.Vector2
---@param b math3d.Vector2
---@param t number 0 is a, 1 is b. Not clamped: the way goes on beyond both.
function math3d.Vector2:intrp(a, b, t) end

---The components in a new plain table {x, y}.
---@nodiscard
---@return number[]
function math3d.Vector2:to_list() end

---A point, a direction or a triple of angles in space. Also by the name `Vector`.
---
---A table. A field that is missing or no number counts as 0.
---
---```lua
---local position = math3d.Vector3.new(0, 1, 0)
---position = position + math3d.Vector3.new(3, 0, 4) * 0.5
---position --> Vector3(1.500000, 1.000000, 2.000000)
---```
---@class math3d.Vector3: math3d.Value
---Component to the right.
---@field x number
---Component upwards.
---@field y number
---Component forward.
---@field z number
---(read-only) `sqrt(x*x + y*y + z*z)`. Infinite where the square is no float any more, from a length of about 1.8e19
---on.
---@field length number
---(read-only) `x*x + y*y + z*z`, without the root.
---@field length_sqr number
---(read-only) No component is more than `EPSILON` away from 0. A component, not the length, is what is tested, and a
---NaN counts as 0.
---@field is_zero boolean
---(read-only) Turn about +y that takes forward to this direction: `atan2(x, z)`, radians in -pi to pi, positive to the
---right. Of any length. 0 for a zero vector and for one along the y axis.
---@field yaw number
---(read-only) Slope of this direction: `-atan2(y, sqrt(x*x + z*z))`, radians in -pi/2 to pi/2, positive downwards. Of
---any length. -0 for a zero vector.
---@field pitch number
---Sum by components.
---@operator add(math3d.Vector3): math3d.Vector3
---Difference by components.
---@operator sub(math3d.Vector3): math3d.Vector3
---Product by components.
---@operator mul(math3d.Vector3): math3d.Vector3
---All components times the number, which stands on the right: `2 * v` is an error.
---@operator mul(number): math3d.Vector3
---The point under the transform, `x * row 0 + y * row 1 + z * row 2 + row 3`. Column 3 of the matrix is not read and
---nothing is divided by a w: for matrices with perspective there is `vector3_transform_coord`, for directions
---`vector3_transform_normal`.
---@operator mul(math3d.Matrix): math3d.Vector3
---Quotient by components. Division by 0 gives infinity, 0 / 0 gives NaN.
---@operator div(math3d.Vector3): math3d.Vector3
---All components times 1/n, which is rounded once more than a quotient. Division by 0 gives infinity, 0 / 0 gives NaN.
---@operator div(number): math3d.Vector3
math3d.Vector3 = {}

---Makes a vector: of three components, of zeros without an argument, of one number three times, or a copy.
---@nodiscard
---@param x number
---@param y number
---@param z number
---@return math3d.Vector3
---@overload fun(): math3d.Vector3
---@overload fun(other: math3d.Vector3): math3d.Vector3
---@overload fun(all: number): math3d.Vector3
function math3d.Vector3.new(x, y, z) end

---`==`: no component differs by more than `EPSILON`, the bound included. A NaN component is equal to any number. An
---error for a table that is no `Vector3`, `v == {}` included; false for what is no table.
---@nodiscard
---@param other math3d.Vector3
---@return boolean
---@see math3d.Vector2.__eq is exact
---@see math3d.Vector4.__eq is exact
function math3d.Vector3:__eq(other) end

---Changes the vector to (x, y, z).
---@param x number
---@param y number
---@param z number
function math3d.Vector3:set(x, y, z) end

---Changes the vector to its direction times `scale`, and gives nothing back: `(v / v.length) * scale`.
---
---A zero vector stays zero, and so becomes one shorter than about 3e-23. A NaN component, or a length from about 1.8e19
---on, makes all three NaN.
---@param scale? number Length of the result; 1 if absent or nil. A negative one turns the vector round.
---@see math3d.vector3_normalize gives a new vector, and NaN for a zero one
---@see math3d.Vector2.normalize gives NaN for a zero vector
---@see math3d.Vector4.normalize gives a new vector
function math3d.Vector3:normalize(scale) end

---Cross product as a new vector: `(y*o.z - z*o.y, z*o.x - x*o.z, x*o.y - y*o.x)`. Right cross up is forward. The zero
---vector for parallel ones.
---@nodiscard
---@param other math3d.Vector3
---@return math3d.Vector3
---@see math3d.vector3_cross is the same
function math3d.Vector3:cross(other) end

---Changes the vector to the place `t` on the way from `a` to `b`: `(b - a) * t + a`. Its old value plays no part, and
---it may be `a` or `b`.
---@param a math3d.Vector3
---@param b math3d.Vector3
---@param t number 0 is a, 1 is b. Not clamped: the way goes on beyond both.
---@see math3d.vector3_lerp gives a new vector
function math3d.Vector3:intrp(a, b, t) end

---Distance of two points, the length of their difference.
---@nodiscard
---@param other math3d.Vector3
---@return number
function math3d.Vector3:distance(other) end

---Changes the vector to the numbers of a text "x,y,z".
---
---A text with fewer than two commas changes nothing. A piece that is no number gives 0, what follows a number is
---ignored, and so is what follows a third comma. Of x and of y, 63 characters count.
---@param text string
---@see math3d.Vector3.to_string writes it
function math3d.Vector3:from_string(text) end

---The components as a text "x,y,z" with six places, which `from_string` reads. What is finer is lost, and values nearer
---to 0 than 0.0001 are written as 0.
---
---```lua
---math3d.Vector3.new(1, 2.5, -0.00001):to_string() --> 1.000000,2.500000,0.000000
---```
---@nodiscard
---@return string
function math3d.Vector3:to_string() end

---The components in a new plain table {x, y, z}.
---@nodiscard
---@return number[]
function math3d.Vector3:to_list() end

---`Vector3` by its other name.
math3d.Vector = math3d.Vector3

---Four numbers, such as a point in homogeneous coordinates. No method changes its object. Also by the name `Vector4f`.
---
---A table. A field that is missing or no number counts as 0. `new` makes no copies: take `Vector4.new(v.x, v.y, v.z,
---v.w)`.
---@class math3d.Vector4: math3d.Value
---First component; of a point, to the right.
---@field x number
---Second component; of a point, upwards.
---@field y number
---Third component; of a point, forward.
---@field z number
---Fourth component: 1 for a point, 0 for a direction.
---@field w number
---(read-only) `sqrt(x*x + y*y + z*z + w*w)`. Infinite where the square is no float any more, from a length of about
---1.8e19 on.
---@field length number
---(read-only) `x*x + y*y + z*z + w*w`, without the root.
---@field length_sqr number
---Sum by components. There is no sum with a number.
---@operator add(math3d.Vector4): math3d.Vector4
---Difference by components.
---@operator sub(math3d.Vector4): math3d.Vector4
---The number off every component.
---@operator sub(number): math3d.Vector4
---Product by components.
---@operator mul(math3d.Vector4): math3d.Vector4
---All components times the number, which stands on the right: `2 * v` is an error. For the product with a matrix there
---is `vector4_transform`.
---@operator mul(number): math3d.Vector4
---All components divided by the number. Division by 0 gives infinity, 0 / 0 gives NaN. There is no quotient of vectors.
---@operator div(number): math3d.Vector4
math3d.Vector4 = {}

---Makes a vector: of four components, of zeros without an argument, or of a `Vector3` and the w. It copies no
---`Vector4`.
---@nodiscard
---@param x number
---@param y number
---@param z number
---@param w number
---@return math3d.Vector4
---@overload fun(): math3d.Vector4
---@overload fun(xyz: math3d.Vector3, w: number): math3d.Vector4
function math3d.Vector4.new(x, y, z, w) end

---`==`: all components are exactly equal; a NaN is equal to nothing. An error for a table that is no `Vector4`, false
---for what is no table.
---@nodiscard
---@param other math3d.Vector4
---@return boolean
---@see math3d.Vector3.__eq has a tolerance
function math3d.Vector4:__eq(other) end

---Dot product, the sum of the four products.
---@nodiscard
---@param other math3d.Vector4
---@return number
---@see math3d.vector4_dot is the same
function math3d.Vector4:dot(other) end

---The direction as a new vector of length 1. The vector stays: take the result.
---
---A length of `EPSILON` or less, or a NaN one, gives zeros. A finite vector whose length is infinite as a float, from
---about 1.8e19 on, gives zeros too; an infinite component gives NaN there.
---@nodiscard
---@return math3d.Vector4
---@see math3d.vector4_normalize takes short vectors too, and gives NaN where a length is infinite
---@see math3d.Vector3.normalize changes its vector
function math3d.Vector4:normalize() end

---The components in a new plain table {x, y, z, w}.
---@nodiscard
---@return number[]
function math3d.Vector4:to_list() end

---`Vector4` by the name that its values tell.
math3d.Vector4f = math3d.Vector4

---A rotation as a quaternion: x, y, z the vector part, w the scalar part. Also by the name `Quaternion`.
---
---A table. A field that is missing or no number counts as 1. Nothing is normalised by itself: what rotates wants a
---quaternion of length 1, which `quaternion_normalize` makes. Its length, inverse and angles are told by the functions
---`quaternion_...`.
---@class math3d.Rotation: math3d.Value
---Of a unit quaternion, x of the unit axis times the sine of half the angle.
---@field x number
---Of a unit quaternion, y of the unit axis times the sine of half the angle.
---@field y number
---Of a unit quaternion, z of the unit axis times the sine of half the angle.
---@field z number
---Of a unit quaternion, the cosine of half the angle.
---@field w number
---(read-only) Where a unit quaternion takes up, +y. A new vector. The zero quaternion gives +y.
---@field up math3d.Vector3
---(read-only) Where a unit quaternion takes forward, +z. A new vector. The zero quaternion gives +z.
---@field forward math3d.Vector3
---(read-only) Where a unit quaternion takes right, +x. A new vector. The zero quaternion gives +x.
---@field right math3d.Vector3
---Sum by components. It is no rotation any more.
---@operator add(math3d.Rotation): math3d.Rotation
---Difference by components. It is no rotation any more.
---@operator sub(math3d.Rotation): math3d.Rotation
---Hamilton's product: the rotation by the right operand first, then by the left. `quaternion_multiply` has the opposite
---order.
---@operator mul(math3d.Rotation): math3d.Rotation
---All components times the number, which stands on the right: `2 * q` is an error. Turns nothing further.
---@operator mul(number): math3d.Rotation
---All components times 1/n. Division by 0 gives infinity, and NaN for a component of 0.
---@operator div(number): math3d.Rotation
math3d.Rotation = {}

---Makes a quaternion: of four components, or a copy. **Without an argument it is (0, 0, 0, 0), not the identity**, for
---which there is `quaternion_identity`.
---
---Quaternions from angles, axes, directions and matrices come from `quaternion_rotation_zxy`,
---`quaternion_rotation_axis`, `quaternion_rotation_fromto` and `quaternion_rotation_matrix`.
---@nodiscard
---@param x number
---@param y number
---@param z number
---@param w number
---@return math3d.Rotation
---@overload fun(): math3d.Rotation
---@overload fun(other: math3d.Rotation): math3d.Rotation
---@see math3d.quaternion_identity is the one that turns nothing
function math3d.Rotation.new(x, y, z, w) end

---`==`: no component differs by more than `EPSILON`, the bound included. A NaN component is equal to any number. `q`
---and its negative are one rotation and not equal. An error for a table that is no `Rotation`, false for what is no
---table.
---@nodiscard
---@param other math3d.Rotation
---@return boolean
function math3d.Rotation:__eq(other) end

---Changes the quaternion to (x, y, z, w).
---@param x number
---@param y number
---@param z number
---@param w number
function math3d.Rotation:set(x, y, z, w) end

---Axis and angle in a new plain table {axis, angle}.
---
---The axis is (x, y, z) as it stands: of a unit quaternion it has the length `sin(angle / 2)`, so normalise it before
---use, and it is zero where nothing turns. The angle is `2 * acos(w)` in radians, 0 to 2 pi, within 1e-4; a w above 1
---counts as 1, one below -1 as -1.
---@nodiscard
---@return {[1]: math3d.Vector3, [2]: number}
---@see math3d.quaternion_to_axis_angle gives the two as two results
function math3d.Rotation:get_axis_angle() end

---Changes the quaternion to `(axis * sin(angle / 2), cos(angle / 2))`, and gives nothing back.
---
---The axis is taken as it comes: one that is not of length 1 gives a quaternion that is not of length 1.
---@param axis math3d.Vector3
---@param angle number Radians.
---@see math3d.quaternion_rotation_axis normalises the axis, and gives a new quaternion
function math3d.Rotation:set_axis_angle(axis, angle) end

---Changes the quaternion to the place `t` on the arc from `a` to `b`, the shorter way round, and gives nothing back.
---Its old value plays no part, and it may be `a` or `b`.
---
---For unit quaternions, with omega the angle between them: `(sin((1 - t) * omega) * a + sin(t * omega) * b) /
---sin(omega)`, and the straight line between quaternions so near that `cos(omega)` is 0.99999 or more. The result is
---not normalised.
---@param a math3d.Rotation
---@param b math3d.Rotation
---@param t number 0 is a, 1 is b or its negative. Not clamped: the arc goes on beyond both.
---@param unused? boolean For older scripts; changes nothing.
---@see math3d.quaternion_slerp gives a new quaternion
---@see math3d.quaternion_lerp goes straight
function math3d.Rotation:slerp(a, b, t, unused) end

---The vector turned by the quaternion, as a new vector: the vector part of `q * (v, 0) * conjugate(q)`.
---
---A quaternion of another length than 1 scales the vector too, by the square of that length; the zero quaternion gives
---zeros.
---@nodiscard
---@param vector math3d.Vector3
---@return math3d.Vector3
---@see math3d.vector3_rotate is the same with the vector first
function math3d.Rotation:rotate_vector(vector) end

---Changes the quaternion to the numbers of a text "x,y,z,w".
---
---A text with fewer than three commas changes nothing. A piece that is no number gives 0, what follows a number is
---ignored, and so is what follows a fourth comma. Of x, y and z, 19 characters count.
---@param text string
---@see math3d.Rotation.to_string writes it
function math3d.Rotation:from_string(text) end

---The components as a text "x,y,z,w" with six places, which `from_string` reads. What is finer is lost, and values
---nearer to 0 than 0.0001 are written as 0.
---@nodiscard
---@return string
function math3d.Rotation:to_string() end

---`Rotation` by its other name.
math3d.Quaternion = math3d.Rotation

---A transform of row vectors, 4x4. Rows 0 to 2 are the right, up and forward axes, row 3 is the translation, column 3
---is (0, 0, 0, 1) unless the matrix has perspective.
---
---A userdata, changed in place by its methods and properties: every variable that holds it sees the change. The vectors
---and matrices that its properties give are copies: `m.translation.x = 1` changes nothing, `m.translation = v` does. It
---takes no fields of a script's own.
---
---There is no `m * v`: write `v * m`. **`==` is an error**, call `Matrix:__eq` with a tolerance.
---@class math3d.Matrix: math3d.Value
---x, y, z of row 3. Assigning leaves element (3, 3) alone.
---@field translation math3d.Vector3
---Lengths of rows 0 to 2; the longest is negative where the rows are mirrored. Shear is not taken out. Assigning gives
---the rows these lengths, as `Matrix:do_scale` does.
---@field scale math3d.Vector3
---The rotation alone, as a new matrix without scale and translation, never mirrored. Assigning replaces the directions
---of rows 0 to 2 by those of the given matrix, each row normalised, and keeps `scale` with its sign and the
---translation.
---
---Rows that are not perpendicular are straightened, row 0 keeping its direction; parallel rows leave no rotation. A row
---shorter than 1e-4 gets a direction perpendicular to the others; sixteen zeros give the diagonal (1, -1, -1, 1). NaN
---or infinity in a row gives NaN.
---@field rotation math3d.Matrix
---Rows 0 to 2, columns 0 to 2, as a new `Matrix33`. Assigning leaves column 3 and row 3 alone.
---@field m33 math3d.Matrix33
---(read-only) x, y, z of row 2 as they stand, not normalised.
---@field forward math3d.Vector3
---(read-only) x, y, z of row 1 as they stand, not normalised.
---@field up math3d.Vector3
---(read-only) x, y, z of row 0 as they stand, not normalised.
---@field right math3d.Vector3
---(read-only) Turn about +y, of the normalised row 2: `atan2(x, z)`, radians in -pi to pi, positive to the right. 0 for
---a row of zeros and for one along the y axis.
---@field yaw number
---(read-only) Slope of the normalised row 2: `-asin(y)`, radians in -pi/2 to pi/2, positive downwards. -0 for a row of
---zeros.
---@field pitch number
---(read-only) Turn about the forward axis, radians in -pi to pi, positive where right goes up. `yaw`, `pitch` and
---`roll` are those that `matrix_rotation_zxy(pitch, yaw, roll)` builds. Where forward is exactly +y or -y it is 0; pi/2
---where row 0 is zero.
---@field roll number
---Sum of all sixteen elements.
---@operator add(math3d.Matrix): math3d.Matrix
---Difference of all sixteen elements.
---@operator sub(math3d.Matrix): math3d.Matrix
---Matrix product: the left operand applies first.
---@operator mul(math3d.Matrix): math3d.Matrix
---All sixteen elements times the number, element (3, 3) too, so it is no scaling: for that there is `matrix_scaling`.
---The number stands on the right.
---@operator mul(number): math3d.Matrix
math3d.Matrix = {}

---Makes a matrix: the identity, sixteen zeros or a copy.
---@nodiscard
---@param kind? integer Absent, nil or 1: the identity. Any other integer: sixteen zeros.
---@return math3d.Matrix
---@overload fun(other: math3d.Matrix): math3d.Matrix
function math3d.Matrix.new(kind) end

---No element differs by more than `tolerance`, the bound included. A pair with a NaN counts as equal, and a negative
---tolerance makes any two numbers differ.
---
---**It has to be called by name**: `a == b` gives no tolerance and is an error, unless both are one and the same
---object.
---@nodiscard
---@param other math3d.Matrix
---@param tolerance number
---@return boolean
function math3d.Matrix:__eq(other, tolerance) end

---One element. 0 for a row or column outside 0 to 3.
---@nodiscard
---@param row integer 0 to 3.
---@param column integer 0 to 3.
---@return number
function math3d.Matrix:get(row, column) end

---Changes one element. Does nothing for a row or column outside 0 to 3.
---@param row integer 0 to 3.
---@param column integer 0 to 3.
---@param value number
function math3d.Matrix:set(row, column, value) end

---Changes all elements, row by row.
---@param e00 number
---@param e01 number
---@param e02 number
---@param e03 number
---@param e10 number
---@param e11 number
---@param e12 number
---@param e13 number
---@param e20 number
---@param e21 number
---@param e22 number
---@param e23 number
---@param e30 number
---@param e31 number
---@param e32 number
---@param e33 number
function math3d.Matrix:set_all(e00, e01, e02, e03, e10, e11, e12, e13, e20, e21, e22, e23, e30, e31, e32, e33) end

---Changes the matrix to the identity.
function math3d.Matrix:set_identity() end

---Changes the lengths of rows 0 to 2 to these, as assigning `scale` does. **The old scale is replaced, not
---multiplied.**
---
---Directions stay, also of sheared rows; a negative length turns its row round; a row of zeros stays.
---@param lengths math3d.Vector3
---@see math3d.matrix_scaling for a product that multiplies the scale
function math3d.Matrix:do_scale(lengths) end

---Changes the matrix to its product with the 3x3 block of another: `m * r`. The translation turns too, and a scale in
---the block scales. Row 3 and column 3 of the other play no part, column 3 of this one stays. Assigning `rotation`
---replaces the rotation instead.
---@param other math3d.Matrix
function math3d.Matrix:do_rotation(other) end

---Adds a vector to the translation, row 3.
---@param offset math3d.Vector3
function math3d.Matrix:do_translate(offset) end

---Changes the matrix to its inverse.
---
---The result is true **also for a singular matrix**, whose elements become infinities and NaN.
---@return boolean # Always true.
---@see math3d.matrix_inverse gives a new matrix
function math3d.Matrix:inverse() end

---Swaps rows and columns of all 4x4, in place: the translation goes to column 3.
---@see math3d.Matrix33.Transpose is that of a 3x3 matrix, with a capital
function math3d.Matrix:transpose() end

---Changes rows 0 to 2 to a unit frame that keeps the forward direction: up is bent to be perpendicular to it, right is
---`up x forward`. Scale and mirror are lost; row 3 and column 3 stay.
---
---A forward of zeros, or an up along forward, leaves zero rows.
---@see math3d.Matrix.orthogonalize keeps the right direction and the mirror
function math3d.Matrix:normalize() end

---Changes rows 0 to 2 to a unit frame that keeps the direction of row 0: row 1 is made perpendicular to it, row 2 to
---both. Scale is lost, a mirrored frame stays mirrored; row 3 and column 3 stay.
---
---A row of zeros stays zeros; a row that depends on those before it becomes zeros, or what rounding left of it.
---@see math3d.Matrix.normalize keeps the forward direction
function math3d.Matrix:orthogonalize() end

---Whether rows 0 to 2 are perpendicular: no dot product of two is more than `EPSILON` away from 0. Lengths play no
---part: a scaled frame is orthogonal, and so are zeros and NaN.
---@nodiscard
---@return boolean
function math3d.Matrix:is_orthogonal() end

---Whether the squared length of one of rows 0 to 2 is more than 2e-6 away from 1. A row of zeros is, one with NaN is
---not.
---@nodiscard
---@return boolean
function math3d.Matrix:has_scale() end

---Whether the frame is mirrored: `(row 0 x row 1) . row 2` is below 0. False for a determinant of 0 or NaN.
---@nodiscard
---@return boolean
function math3d.Matrix:is_mirrored() end

---Negates all four elements of row 0.
function math3d.Matrix:mirror() end

---The direction under the transform, as a new vector: `x * row 0 + y * row 1 + z * row 2`, without the translation. An
---infinity or NaN in row 3 gives NaN all the same.
---@nodiscard
---@param vector math3d.Vector3
---@return math3d.Vector3
---@see math3d.vector3_transform_normal does not look at row 3
function math3d.Matrix:mulvec3x3(vector) end

---A new matrix that moves by a vector.
---@nodiscard
---@param offset math3d.Vector3
---@return math3d.Matrix
---@see math3d.matrix_translation_from_vector is the same
function math3d.Matrix.make_translation(offset) end

---A new matrix that turns about +x, a pitch: forward down. Rows (1, 0, 0), (0, c, s), (0, -s, c).
---
---Sine and cosine are the module's own, within 3e-7 for up to a full turn. The error grows with the angle, to 1e-4 at
---1000 radians; beyond about 1e7 the elements mean nothing, and can be huge. An infinite or NaN angle gives NaN.
---@nodiscard
---@param angle number Radians.
---@return math3d.Matrix
---@see math3d.matrix_rotation_zxy for three angles at once
function math3d.Matrix.make_rotation_x(angle) end

---A new matrix that turns about +y, a yaw: forward to the right. Rows (c, 0, -s), (0, 1, 0), (s, 0, c). Accuracy as of
---`Matrix.make_rotation_x`.
---@nodiscard
---@param angle number Radians.
---@return math3d.Matrix
---@see math3d.matrix_rotation_zxy for three angles at once
function math3d.Matrix.make_rotation_y(angle) end

---A new matrix that turns about +z, a roll: right up. Rows (c, s, 0), (-s, c, 0), (0, 0, 1). Accuracy as of
---`Matrix.make_rotation_x`.
---@nodiscard
---@param angle number Radians.
---@return math3d.Matrix
---@see math3d.matrix_rotation_zxy for three angles at once
function math3d.Matrix.make_rotation_z(angle) end

---A new matrix that turns one direction to another: `from * m` points along `to`. Lengths play no part.
---
---Opposite directions turn half a circle about some axis across them. Directions that agree, a zero vector, NaN, and
---lengths from about 1.8e19 on give the identity. Near no turn and near half a turn the angle is off by up to 0.02
---degrees, so that a smaller one comes out as none.
---@nodiscard
---@param from math3d.Vector3
---@param to math3d.Vector3
---@return math3d.Matrix
---@see math3d.quaternion_rotation_fromto wants longer vectors and treats opposite ones otherwise
function math3d.Matrix.make_rotation_between(from, to) end

---A new matrix that looks along `forward`, its row 2, with row 1 towards `up`. Lengths play no part.
---
---Where up lies along forward, within 0.08 degrees, the unit axis on which forward is smallest takes its place. A zero
---vector in either, which is no component beyond `EPSILON`, gives **sixteen zeros**.
---@nodiscard
---@param forward math3d.Vector3
---@param up math3d.Vector3
---@return math3d.Matrix
---@see math3d.matrix_rotation_look has no such replacements
function math3d.Matrix.make_orient(forward, up) end

---A new matrix that reflects in the plane through `point`.
---
---**The normal has to be of length 1**: another length gives no reflection. A zero normal, which is no component beyond
---`EPSILON`, gives sixteen zeros.
---@nodiscard
---@param normal math3d.Vector3
---@param point math3d.Vector3
---@return math3d.Matrix
function math3d.Matrix.make_reflection(normal, point) end

---Rotation and scale without translation, 3x3: rows are the right, up and forward axes. `m33` of a `Matrix` gives one
---and takes one.
---
---A userdata, changed in place by its methods: every variable that holds it sees the change. It has no properties and
---takes no fields of a script's own. **`==` is an error**, call `Matrix33:__eq` with a tolerance.
---@class math3d.Matrix33: math3d.Value
---Matrix product, the left operand first, **then orthogonalised**: the result has no scale, and row 0 of the plain
---product keeps its direction. Zeros give zeros.
---@operator mul(math3d.Matrix33): math3d.Matrix33
math3d.Matrix33 = {}

---Makes a matrix: the identity, or a copy. It takes no integer, unlike `Matrix.new`.
---@nodiscard
---@return math3d.Matrix33
---@overload fun(other: math3d.Matrix33): math3d.Matrix33
function math3d.Matrix33.new() end

---No element differs by more than `tolerance`, the bound included. A pair with a NaN counts as equal, and a negative
---tolerance makes any two numbers differ.
---
---**It has to be called by name**: `a == b` gives no tolerance and is an error, unless both are one and the same
---object.
---@nodiscard
---@param other math3d.Matrix33
---@param tolerance number
---@return boolean
function math3d.Matrix33:__eq(other, tolerance) end

---One element. 0 for a row or column outside 0 to 2.
---@nodiscard
---@param row integer 0 to 2.
---@param column integer 0 to 2.
---@return number
function math3d.Matrix33:get(row, column) end

---Changes one element. Does nothing for a row or column outside 0 to 2.
---@param row integer 0 to 2.
---@param column integer 0 to 2.
---@param value number
function math3d.Matrix33:set(row, column, value) end

---Changes all elements, row by row.
---@param e00 number
---@param e01 number
---@param e02 number
---@param e10 number
---@param e11 number
---@param e12 number
---@param e20 number
---@param e21 number
---@param e22 number
function math3d.Matrix33:set_all(e00, e01, e02, e10, e11, e12, e20, e21, e22) end

---Changes the matrix to the identity.
function math3d.Matrix33:set_identity() end

---Changes the rows to a unit frame that keeps the direction of row 0, as `Matrix:orthogonalize` does.
---
---A row of zeros stays zeros; a row that depends on those before it becomes zeros, or what rounding left of it.
---@see math3d.Matrix.orthogonalize does the same to a 4x4 matrix
function math3d.Matrix33:orthogonalize() end

---Whether the frame is mirrored: `(row 0 x row 1) . row 2` is below 0. False for a determinant of 0 or NaN.
---@nodiscard
---@return boolean
function math3d.Matrix33:is_mirrored() end

---Negates row 0.
function math3d.Matrix33:mirror() end

---Swaps rows and columns in place. With a capital, unlike `Matrix:transpose`.
---@see math3d.Matrix.transpose is that of a 4x4 matrix, without a capital
function math3d.Matrix33:Transpose() end

---A rectangle by its edges: x grows from left to right, y from top to bottom.
---
---A table. A field that is missing or no number counts as 0. Nothing keeps the edges in order, so a size may be
---negative. `new` makes no copies: take `rect * 1`.
---@class math3d.RectF: math3d.Value
---Smallest x, unless the width is negative.
---@field left number
---Smallest y, unless the height is negative.
---@field top number
---Largest x, unless the width is negative.
---@field right number
---Largest y, unless the height is negative.
---@field bottom number
---The corner (left, top), as a new vector. Assigning moves these two edges; the others stay, so the size changes.
---@field min math3d.Vector2
---The corner (right, bottom), as a new vector. Assigning moves these two edges; the others stay, so the size changes.
---@field max math3d.Vector2
---`right - left`, negative where the edges have changed places. Assigning moves `right`.
---@field width number
---`bottom - top`, negative where the edges have changed places. Assigning moves `bottom`.
---@field height number
---The rectangle moved by a vector. There is no difference: add `v * -1`.
---@operator add(math3d.Vector2): math3d.RectF
---All four edges times the number: position and size grow alike. A negative number changes the order of the edges.
---@operator mul(number): math3d.RectF
math3d.RectF = {}

---Makes a rectangle: of four edges, of zeros without an argument, or of its left top corner and its **size**, not its
---other corner.
---
---```lua
---local position, size = math3d.Vector2.new(1, 2), math3d.Vector2.new(3, 4)
---math3d.RectF.new(position, size) --> RectF(1.000000, 2.000000, 4.000000, 6.000000)
---```
---@nodiscard
---@param left number
---@param top number
---@param right number
---@param bottom number
---@return math3d.RectF
---@overload fun(): math3d.RectF
---@overload fun(position: math3d.Vector2, size: math3d.Vector2): math3d.RectF
function math3d.RectF.new(left, top, right, bottom) end

---`==`: all edges are exactly equal; a NaN is equal to nothing. An error for a table that is no `RectF`, false for what
---is no table.
---@nodiscard
---@param other math3d.RectF
---@return boolean
function math3d.RectF:__eq(other) end

---Distances from the four edges of some rectangle, to be handed on: it has no operations.
---
---A table. A field that is missing or no number counts as 0. `==` asks whether both are one and the same table.
---@class math3d.RectOffset: math3d.Value
---From the left edge.
---@field left number
---From the top edge.
---@field top number
---From the right edge.
---@field right number
---From the bottom edge.
---@field bottom number
math3d.RectOffset = {}

---Makes an offset: of four numbers, or of zeros without an argument. It makes no copies.
---@nodiscard
---@param left number
---@param top number
---@param right number
---@param bottom number
---@return math3d.RectOffset
---@overload fun(): math3d.RectOffset
function math3d.RectOffset.new(left, top, right, bottom) end

---A colour of four bytes, 255 as full scale.
---
---A table of integers. A field that is missing or no integer, 1.0 included, counts as 0; of an integer the low 8 bits
---count, though `tostring` shows it whole.
---@class math3d.Color32: math3d.Value
---Red, 0 to 255.
---@field r integer
---Green, 0 to 255.
---@field g integer
---Blue, 0 to 255.
---@field b integer
---Alpha: 0 is transparent, 255 opaque.
---@field a integer
math3d.Color32 = {}

---Makes a colour: of four integers **with the alpha first**, of which the low 8 bits count; opaque white without an
---argument; a copy; a `ColorF` rounded and saturated, as `color_to_color32` does; or of one integer 0xAARRGGBB.
---
---```lua
---math3d.Color32.new(255, 1, 2, 3)  --> Color32(1, 2, 3, 255)
---math3d.Color32.new(0xFF010203)    --> Color32(1, 2, 3, 255)
---```
---@nodiscard
---@param a integer
---@param r integer
---@param g integer
---@param b integer
---@return math3d.Color32
---@overload fun(): math3d.Color32
---@overload fun(other: math3d.Color32): math3d.Color32
---@overload fun(color: math3d.ColorF): math3d.Color32
---@overload fun(word: integer): math3d.Color32
---@see math3d.color32_from_rgba has the alpha last
function math3d.Color32.new(a, r, g, b) end

---`==`: all four bytes are equal. An error for a table that is no `Color32`, false for what is no table.
---@nodiscard
---@param other math3d.Color32
---@return boolean
function math3d.Color32:__eq(other) end

---Changes the colour to a blend of two: `(b - a) * t + a` on all channels, cut towards 0 and saturated. Its old value
---plays no part, and it may be `a` or `b`.
---@param a math3d.Color32
---@param b math3d.Color32
---@param t number 0 is a, 1 is b. Not clamped. NaN gives zeros.
---@see math3d.color32_lerp gives a new colour, which can differ by 1
function math3d.Color32:intrp(a, b, t) end

---A colour of four floats, 1 as full scale. Nothing holds a channel in 0 to 1 but `ColorF:clamp`.
---
---A table. A field that is missing or no number counts as 1.
---@class math3d.ColorF: math3d.Value
---Red, 1 as full scale.
---@field r number
---Green, 1 as full scale.
---@field g number
---Blue, 1 as full scale.
---@field b number
---Alpha: 0 is transparent, 1 opaque.
---@field a number
---Sum of r, g and b, not clamped. **The alpha is that of the left colour.**
---@operator add(math3d.ColorF): math3d.ColorF
---r, g and b times the number, which stands on the right; not clamped. **The alpha stays.**
---@operator mul(number): math3d.ColorF
math3d.ColorF = {}

---Makes a colour: of four numbers **with the alpha first**; (1, 1, 1, 1) without an argument; a copy; a `Color32` with
---its bytes divided by 255; or of one integer 0xAARRGGBB.
---
---```lua
---math3d.ColorF.new(1, 0.25, 0.5, 0.75)  --> ColorF(0.250000, 0.500000, 0.750000, 1.000000)
---```
---@nodiscard
---@param a number
---@param r number
---@param g number
---@param b number
---@return math3d.ColorF
---@overload fun(): math3d.ColorF
---@overload fun(other: math3d.ColorF): math3d.ColorF
---@overload fun(color: math3d.Color32): math3d.ColorF
---@overload fun(word: integer): math3d.ColorF
---@see math3d.color_from_rgba has the alpha last, and 255 as full scale
function math3d.ColorF.new(a, r, g, b) end

---`==`: all four channels are exactly equal; a NaN is equal to nothing. An error for a table that is no `ColorF`, false
---for what is no table.
---@nodiscard
---@param other math3d.ColorF
---@return boolean
function math3d.ColorF:__eq(other) end

---Holds r, g and b in 0 to 1, in place. **The alpha is left as it is**, and so is a NaN.
function math3d.ColorF:clamp() end

---Changes the colour to a blend of two: `(b - a) * t + a` on all channels, not clamped. Its old value plays no part,
---and it may be `a` or `b`.
---@param a math3d.ColorF
---@param b math3d.ColorF
---@param t number 0 is a, 1 is b. Not clamped.
---@see math3d.color_lerp gives a new colour
function math3d.ColorF:intrp(a, b, t) end

---An infinite plane: for the class, the points p with `normal . p == dist`. **The functions `plane_...` read `dist`
---with the opposite sign**, as `normal . p + dist == 0`, and nothing converts between the two.
---
---A table, whose `normal` is a table of its own. A field that is missing or of another type counts as zero.
---@class math3d.Plane: math3d.Value
---The side that the plane faces. It need not be of length 1; then distances are in units of its length.
---@field normal math3d.Vector3
---For the class, the distance of the plane from the origin along the normal.
---@field dist number
math3d.Plane = {}

---Makes a plane: of normal and `dist`; of four numbers, the normal's three and `dist`; of a normal and a point; through
---three points; of zeros without an argument; or a copy.
---
---A normal is taken as it comes. Only the form with three points makes one of length 1, along `(p1 - p0) x (p2 - p0)`;
---points on one line, or so far apart or so close that squares overflow or vanish, give the plane of zeros, NaN gives
---NaN.
---
---```lua
---local normal, point = math3d.Vector3.new(0, 1, 0), math3d.Vector3.new(7, 2, 7)
---math3d.Plane.new(normal, point)                    --> Plane(0.000000, 1.000000, 0.000000, 2.000000)
---math3d.plane_from_point_normal(point, normal)      --> Plane(0.000000, 1.000000, 0.000000, -2.000000)
---```
---@nodiscard
---@param normal math3d.Vector3
---@param dist number
---@return math3d.Plane
---@overload fun(normal: math3d.Vector3, point: math3d.Vector3): math3d.Plane
---@overload fun(p0: math3d.Vector3, p1: math3d.Vector3, p2: math3d.Vector3): math3d.Plane
---@overload fun(x: number, y: number, z: number, dist: number): math3d.Plane
---@overload fun(): math3d.Plane
---@overload fun(other: math3d.Plane): math3d.Plane
---@see math3d.plane_from_point_normal has the other sign of dist
---@see math3d.plane_from_points has the other sign of dist
function math3d.Plane.new(normal, dist) end

---`==`: no component of the normal differs by more than `EPSILON`, and `dist` differs by less. A NaN in the normal is
---equal to any number, a NaN `dist` to none. Normal and dist negated describe the same points and are not equal. An
---error for a table that is no `Plane`, false for what is no table.
---@nodiscard
---@param other math3d.Plane
---@return boolean
function math3d.Plane:__eq(other) end

---Signed distance of a point, `point . normal - dist`: positive on the side that the normal points to, in units of the
---normal's length. 0 for every point if the plane is all zeros.
---@nodiscard
---@param point math3d.Vector3
---@return number
---@see math3d.plane_dist_from_point reads dist with the other sign
function math3d.Plane:distance_to(point) end

---Puts the projection of a point into `out`, and gives nothing back: `out` becomes `point - normal * (point . normal -
---dist)`.
---
---The foot of the perpendicular, if the normal is of length 1. `out` may be the point itself.
---
---```lua
---local out = math3d.Vector3.new()
---math3d.Plane.new(0, 1, 0, 2):project_point(out, math3d.Vector3.new(4, 7, 5))
---out --> Vector3(4.000000, 2.000000, 5.000000)
---```
---@param out math3d.Vector3 Changed; what it held plays no part.
---@param point math3d.Vector3
function math3d.Plane:project_point(out, point) end

---A half-line, to be handed on: it has no operations.
---
---A table, whose `origin` and `direction` are tables of their own; one that is missing or no `Vector3` counts as zeros.
---`==` asks whether both are one and the same table.
---@class math3d.Ray: math3d.Value
---Where it starts.
---@field origin math3d.Vector3
---As it came: nothing normalises it, and it may be zero.
---@field direction math3d.Vector3
math3d.Ray = {}

---Makes a ray: of origin and direction, of zeros without an argument, or a copy. The vectors are copied, the direction
---is not normalised.
---@nodiscard
---@param origin math3d.Vector3
---@param direction math3d.Vector3
---@return math3d.Ray
---@overload fun(): math3d.Ray
---@overload fun(other: math3d.Ray): math3d.Ray
function math3d.Ray.new(origin, direction) end

---A box whose edges run along the axes.
---
---A userdata, changed in place by its properties: every variable that holds it sees the change. The vectors that its
---properties give are copies: `box.min.x = 1` changes nothing, `box.min = v` does. It takes no fields of a script's
---own.
---
---Nothing keeps `min` below `max`. The box of `Aabb.new()` is empty: inside out, its `min` above its `max`.
---@class math3d.Aabb: math3d.Value
---Lower corner, as a new vector. Assigning writes this corner alone: `center` then is out of date.
---@field min math3d.Vector3
---Upper corner, as a new vector. Assigning writes this corner alone: `center` then is out of date.
---@field max math3d.Vector3
---(read-only) `min` plus **the half size that the box was built with**: right until `min` or `max` is assigned. Then
---`(box.min + box.max) * 0.5` is the centre, or that of `aabb_transform` with the identity. For an empty box, the
---largest float on all axes.
---@field center math3d.Vector3
---(read-only) Half the size, `(max - min) * 0.5`, always up to date. Negative where the corners have changed places.
---@field extents math3d.Vector3
math3d.Aabb = {}

---Makes a box: of its centre and its **full size**, which is neither the half size nor a corner; empty without an
---argument; or a copy. A negative size puts `max` below `min` on that axis.
---
---```lua
---local box = math3d.Aabb.new(math3d.Vector3.new(0), math3d.Vector3.new(2, 4, 6))
---box.max --> Vector3(1.000000, 2.000000, 3.000000)
---```
---@nodiscard
---@param center math3d.Vector3
---@param size math3d.Vector3
---@return math3d.Aabb
---@overload fun(): math3d.Aabb
---@overload fun(other: math3d.Aabb): math3d.Aabb
function math3d.Aabb.new(center, size) end

---`==`: no component of `min` and `max` differs by more than `EPSILON`, the bound included. A NaN is equal to any
---number; `center` plays no part. An error for another userdata, false for what is none.
---@nodiscard
---@param other math3d.Aabb
---@return boolean
function math3d.Aabb:__eq(other) end

---The eight corners in a new plain table **with the keys 0 to 7**. 0 to 3 are the face at `max.z`, 4 to 7 the one at
---`min.z`, each in the order (min, min), (max, min), (max, max), (min, max) of x and y. `#` gives 7, and `ipairs` skips
---corner 0:
---
---```lua
---local corners = math3d.Aabb.new(math3d.Vector3.new(0), math3d.Vector3.new(2, 4, 6)):get_corners()
---for i = 0, 7 do assert(corners[i].length > 3.7) end
---corners[0] --> Vector3(-1.000000, -2.000000, 3.000000)
---```
---@nodiscard
---@return table<integer,math3d.Vector3>
function math3d.Aabb:get_corners() end

-- ## Scalars
-- Numbers and angles.

---Degrees to radians, `x * pi / 180`.
---@nodiscard
---@param x number Degrees.
---@return number # Radians.
function math3d.radians(x) end

---Radians to degrees, `x * 180 / pi`.
---@nodiscard
---@param x number Radians.
---@return number # Degrees.
function math3d.degrees(x) end

---The value held between two bounds, given in any order. A NaN value gives the lower bound; NaN as a bound gives either
---the other bound or NaN.
---@nodiscard
---@param value number
---@param a number
---@param b number
---@return number
---@see math3d.vector3_clamp wants its bounds in order
function math3d.clamp(value, a, b) end

---The number at the place `t` on the way from `a` to `b`: `(b - a) * t + a`.
---@nodiscard
---@param a number
---@param b number
---@param t number 0 is a, 1 is b. Not clamped: the way goes on beyond both.
---@return number
---@see math3d.lerp_angle for angles
function math3d.lerp(a, b, t) end

---`t` wrapped into 0 to `length`, or into `length` to 0 for a negative length: `t - floor(t / length) * length`. As
---`repeat` is a word of Lua, it is called `math3d["repeat"]`.
---
---Rounding can give the length itself, as for -1e-9. A length of 0 gives 0, a NaN or infinite `t` the lower end.
---@nodiscard
---@param t number
---@param length number
---@return number
math3d["repeat"] = function(t, length) end

---The angle at the place `t` on the shorter way from angle `a` to angle `b`: `a + delta_angle(a, b) * t`. Not wrapped,
---so it can lie outside -pi to pi.
---@nodiscard
---@param a number Radians.
---@param b number Radians.
---@param t number Held in 0 to 1, unlike that of `lerp`. NaN counts as 0.
---@return number # Radians, within pi of a.
---@see math3d.lerp for plain numbers
function math3d.lerp_angle(a, b, t) end

---The shortest turn that takes angle `a` to angle `b`. Half a turn is +pi either way. 0 for NaN or infinite angles.
---
---```lua
---math3d.degrees(math3d.delta_angle(math3d.radians(350), math3d.radians(10))) --> 20
---```
---@nodiscard
---@param a number Radians.
---@param b number Radians.
---@return number # Radians, above -pi and up to pi.
function math3d.delta_angle(a, b) end

-- ## Smooth damping
-- A critically damped spring towards a target, one step a frame. The caller keeps the velocity and hands it in again.
-- All six arguments have to be there; nil for the speed means no limit.

---One step towards a target that may move: first to full speed, then slowing down, without passing it.
---
---A step that would pass the target stops on it with the velocity 0, or NaN if `delta_time` is 0. That holds for a
---start on the target too, unless the velocity leads upwards. An infinite target has no useful result.
---
---```lua
---local value, velocity = 0, 0
---for _ = 1, 60 do value, velocity = math3d.smooth_damp(value, 10, velocity, 0.25, nil, 1 / 60) end
---value > 9.9 and value < 10 --> true
---```
---@nodiscard
---@param current number
---@param target number
---@param velocity number Velocity of the last step, 0 at first.
---@param smooth_time number About how long it takes, in seconds. Below 0.0001 it counts as that.
---@param max_speed number? Limit on the speed, whichever its sign; nil for none. 0 stands still once the velocity is 0.
---@param delta_time number Seconds since the last step.
---@return number value
---@return number velocity For the next step.
---@see math3d.vector3_smooth_damp for vectors
function math3d.smooth_damp(current, target, velocity, smooth_time, max_speed, delta_time) end

---`smooth_damp` on each component by itself, with a limit each.
---
---**A limit has to be 0 or positive**: a negative one drives its component downwards, wherever the target is. The limit
---of `smooth_damp` may have either sign.
---@nodiscard
---@param current math3d.Vector3
---@param target math3d.Vector3
---@param velocity math3d.Vector3 Velocity of the last step, zeros at first.
---@param smooth_time number About how long it takes, in seconds. Below 0.0001 it counts as that.
---@param max_speed math3d.Vector3? Limit on the speed of each component, 0 or positive; nil for none.
---@param delta_time number Seconds since the last step.
---@return math3d.Vector3 value
---@return math3d.Vector3 velocity For the next step.
---@see math3d.smooth_damp for numbers
function math3d.vector3_smooth_damp(current, target, velocity, smooth_time, max_speed, delta_time) end

-- ## Vectors of three
-- On `Vector3`. All give new values.

---Sizes of the components.
---@nodiscard
---@param v math3d.Vector3
---@return math3d.Vector3
function math3d.vector3_abs(v) end

---Dot product, `a.x*b.x + a.y*b.y + a.z*b.z`. The class has no method for it.
---@nodiscard
---@param a math3d.Vector3
---@param b math3d.Vector3
---@return number
function math3d.vector3_dot(a, b) end

---Cross product. Right cross up is forward. The zero vector for parallel ones.
---@nodiscard
---@param a math3d.Vector3
---@param b math3d.Vector3
---@return math3d.Vector3
---@see math3d.Vector3.cross is the same
function math3d.vector3_cross(a, b) end

---The place `t` on the way from `a` to `b`: `(b - a) * t + a`.
---@nodiscard
---@param a math3d.Vector3
---@param b math3d.Vector3
---@param t number 0 is a, 1 is b. Not clamped: the way goes on beyond both.
---@return math3d.Vector3
---@see math3d.Vector3.intrp changes its vector
function math3d.vector3_lerp(a, b, t) end

---Square of the length, the same as `length_sqr` of the class.
---@nodiscard
---@param v math3d.Vector3
---@return number
function math3d.vector3_length_sq(v) end

---Length, the same as `length` of the class.
---@nodiscard
---@param v math3d.Vector3
---@return number
function math3d.vector3_length(v) end

---The smaller of each pair of components; where one is NaN, the other.
---@nodiscard
---@param a math3d.Vector3
---@param b math3d.Vector3
---@return math3d.Vector3
function math3d.vector3_min(a, b) end

---The larger of each pair of components; where one is NaN, the other.
---@nodiscard
---@param a math3d.Vector3
---@param b math3d.Vector3
---@return math3d.Vector3
function math3d.vector3_max(a, b) end

---Each component held between those of `lo` and `hi`. Where lo is above hi, lo wins. A NaN component becomes hi.
---@nodiscard
---@param v math3d.Vector3
---@param lo math3d.Vector3
---@param hi math3d.Vector3
---@return math3d.Vector3
---@see math3d.clamp takes its bounds in any order, and NaN to the lower
function math3d.vector3_clamp(v, lo, hi) end

---The direction, of length 1, as a new vector: `v * (1 / length)`.
---
---**No guard**: the zero vector gives NaN in all components, one shorter than about 3e-23 infinity or NaN, a finite one
---longer than about 1.8e19 zeros, and an infinite component NaN.
---@nodiscard
---@param v math3d.Vector3
---@return math3d.Vector3
---@see math3d.Vector3.normalize changes its vector, and leaves a zero one alone
---@see math3d.vector4_normalize has a guard
function math3d.vector3_normalize(v) end

---The vector turned by a quaternion: the vector part of `q * (v, 0) * conjugate(q)`.
---
---A quaternion of another length than 1 scales the vector too, by the square of that length; the zero quaternion gives
---zeros.
---@nodiscard
---@param v math3d.Vector3
---@param q math3d.Rotation
---@return math3d.Vector3
---@see math3d.Rotation.rotate_vector is the same with the quaternion first, up to rounding
function math3d.vector3_rotate(v, q) end

---The point under a transform with perspective: `(x, y, z, 1) * m`, divided by the w of the product.
---
---A w of 0 gives infinity, or NaN where the component is 0 too.
---@nodiscard
---@param v math3d.Vector3
---@param m math3d.Matrix
---@return math3d.Vector3
---@see math3d.vector3_transform_normal for directions
---@see math3d.vector4_transform keeps the w
function math3d.vector3_transform_coord(v, m) end

---The direction under a transform: `x * row 0 + y * row 1 + z * row 2`. The translation plays no part, scale does. The
---normal of a surface stays one only if the scale is the same on all axes.
---@nodiscard
---@param v math3d.Vector3
---@param m math3d.Matrix
---@return math3d.Vector3
---@see math3d.vector3_transform_coord for points
---@see math3d.Matrix.mulvec3x3 is the same for finite matrices
function math3d.vector3_transform_normal(v, m) end

---Shortest turn between two triples of zxy angles: for each angle `delta_angle`, to `b` or to the other triple of the
---same rotation, `(pi - x, y + pi, z + pi)`, whichever is nearer in the sum of the three sizes. The second wins a tie.
---@nodiscard
---@param a math3d.Vector3 Radians about x, y, z.
---@param b math3d.Vector3 Radians about x, y, z.
---@return math3d.Vector3 # Radians, above -pi and up to pi each.
---@see math3d.quaternion_rotation_zxy tells the order
function math3d.vector3_delta_angle_zxy(a, b) end

-- ## Vectors of four
-- On `Vector4`. All give new values.

---Sizes of the components.
---@nodiscard
---@param v math3d.Vector4
---@return math3d.Vector4
function math3d.vector4_abs(v) end

---Dot product, the sum of the four products.
---@nodiscard
---@param a math3d.Vector4
---@param b math3d.Vector4
---@return number
---@see math3d.Vector4.dot is the same
function math3d.vector4_dot(a, b) end

---The vector perpendicular to three others: component i is (-1)^i times the determinant of rows a, b, c without column
---i. Zeros where the three depend on each other.
---@nodiscard
---@param a math3d.Vector4
---@param b math3d.Vector4
---@param c math3d.Vector4
---@return math3d.Vector4
function math3d.vector4_cross(a, b, c) end

---The place `t` on the way from `a` to `b`: `(b - a) * t + a`.
---@nodiscard
---@param a math3d.Vector4
---@param b math3d.Vector4
---@param t number 0 is a, 1 is b. Not clamped: the way goes on beyond both.
---@return math3d.Vector4
function math3d.vector4_lerp(a, b, t) end

---Square of the length, the same as `length_sqr` of the class.
---@nodiscard
---@param v math3d.Vector4
---@return number
function math3d.vector4_length_sq(v) end

---Length, the same as `length` of the class.
---@nodiscard
---@param v math3d.Vector4
---@return number
function math3d.vector4_length(v) end

---The smaller of each pair of components; where one is NaN, the other.
---@nodiscard
---@param a math3d.Vector4
---@param b math3d.Vector4
---@return math3d.Vector4
function math3d.vector4_min(a, b) end

---The larger of each pair of components; where one is NaN, the other.
---@nodiscard
---@param a math3d.Vector4
---@param b math3d.Vector4
---@return math3d.Vector4
function math3d.vector4_max(a, b) end

---Each component held between those of `lo` and `hi`. Where lo is above hi, lo wins. A NaN component becomes hi.
---@nodiscard
---@param v math3d.Vector4
---@param lo math3d.Vector4
---@param hi math3d.Vector4
---@return math3d.Vector4
function math3d.vector4_clamp(v, lo, hi) end

---The direction, of length 1, as a new vector: `v / length`.
---
---A length of 0, which is what one below about 3e-23 has, gives zeros. NaN in a component, and a length that is
---infinite as a float, from about 1.8e19 on, give NaN in all four.
---@nodiscard
---@param v math3d.Vector4
---@return math3d.Vector4
---@see math3d.Vector4.normalize gives zeros up to a length of EPSILON
---@see math3d.vector3_normalize has no guard
function math3d.vector4_normalize(v) end

---The product with a matrix, `x * row 0 + y * row 1 + z * row 2 + w * row 3`: a point where w is 1, a direction where w
---is 0.
---@nodiscard
---@param v math3d.Vector4
---@param m math3d.Matrix
---@return math3d.Vector4
---@see math3d.vector3_transform_coord divides by the w
function math3d.vector4_transform(v, m) end

-- ## Quaternions
-- On `Rotation`, x, y, z, w with the scalar part last. All give new values.
--
-- Three conventions of Euler angles occur. A triple always holds the angles about x, y and z, in radians and in that
-- order, whatever the order of application:
--
-- - **zxy**: z first, then x, then y, which is roll, pitch, yaw; `Qy * Qx * Qz`. Built by `quaternion_rotation_zxy`,
--   `quaternion_rotation_zxy_from_vector`, `matrix_rotation_zxy` and `matrix_rotation_zxy_from_vector`, read by
--   `quaternion_to_rotation_xzy` and by `yaw`, `pitch` and `roll` of a `Matrix`.
-- - **xyz**: z first, then y, then x; `Qx * Qy * Qz`. Read by `quaternion_to_euler_xyz`.
-- - **zyx**: x first, then y, then z; `Qz * Qy * Qx`. Read by `quaternion_to_euler_zyx`.

---The rotation by `a` first, then by `b`: Hamilton's product `b * a`. **The operator has the opposite order**:
---`quaternion_multiply(a, b)` is `b * a` of the class.
---@nodiscard
---@param a math3d.Rotation Applies first.
---@param b math3d.Rotation Applies second.
---@return math3d.Rotation
---@see math3d.Rotation has the operator
function math3d.quaternion_multiply(a, b) end

---Dot product, the sum of the four products. Of unit quaternions, the cosine of half the angle between the rotations.
---@nodiscard
---@param a math3d.Rotation
---@param b math3d.Rotation
---@return number
function math3d.quaternion_dot(a, b) end

---The place `t` on the straight line from `a` to `b`: `(b - a) * t + a`. Not normalised, and the way may be the longer
---one: a quaternion and its negative blend through zero.
---@nodiscard
---@param a math3d.Rotation
---@param b math3d.Rotation
---@param t number 0 is a, 1 is b. Not clamped.
---@return math3d.Rotation
---@see math3d.quaternion_slerp turns evenly, the shorter way round
function math3d.quaternion_lerp(a, b, t) end

---The place `t` on the arc from `a` to `b`, the shorter way round, at an even pace.
---
---For unit quaternions, with omega the angle between them: `(sin((1 - t) * omega) * a + sin(t * omega) * b) /
---sin(omega)`, and the straight line between quaternions so near that `cos(omega)` is 0.99999 or more. The result is
---not normalised.
---@nodiscard
---@param a math3d.Rotation
---@param b math3d.Rotation
---@param t number 0 is a, 1 is b or its negative. Not clamped: the arc goes on beyond both.
---@return math3d.Rotation
---@see math3d.Rotation.slerp changes its quaternion
---@see math3d.quaternion_lerp goes straight
function math3d.quaternion_slerp(a, b, t) end

---(-x, -y, -z, w): the opposite rotation of a unit quaternion.
---@nodiscard
---@param q math3d.Rotation
---@return math3d.Rotation
---@see math3d.quaternion_inverse for other lengths
function math3d.quaternion_conjugate(q) end

---Square of the length, `x*x + y*y + z*z + w*w`.
---@nodiscard
---@param q math3d.Rotation
---@return number
function math3d.quaternion_length_sq(q) end

---Length, 1 for a quaternion that only rotates.
---@nodiscard
---@param q math3d.Rotation
---@return number
function math3d.quaternion_length(q) end

---The quaternion divided by its length.
---
---The zero quaternion gives zeros, not the identity. NaN in a component, and a length that is infinite as a float, from
---about 1.8e19 on, give NaN in all four.
---@nodiscard
---@param q math3d.Rotation
---@return math3d.Rotation
function math3d.quaternion_normalize(q) end

---The conjugate divided by the square of the length: its product with q is the identity.
---
---**Zeros for a length up to about 3.45e-4.**
---@nodiscard
---@param q math3d.Rotation
---@return math3d.Rotation
---@see math3d.quaternion_conjugate is enough for unit quaternions
function math3d.quaternion_inverse(q) end

---(0, 0, 0, 1), which turns nothing.
---@nodiscard
---@return math3d.Rotation
---@see math3d.Rotation.new gives (0, 0, 0, 0)
function math3d.quaternion_identity() end

---The turn about an axis of any length. Positive angles turn forward to the right about +y, forward down about +x,
---right up about +z.
---
---A zero axis gives (0, 0, 0, cos(angle / 2)), which is no unit quaternion; an axis from about 1.8e19 on, NaN.
---@nodiscard
---@param axis math3d.Vector3
---@param angle number Radians.
---@return math3d.Rotation
---@see math3d.Rotation.set_axis_angle takes the axis as it comes
---@see math3d.matrix_rotation_axis gives a matrix
function math3d.quaternion_rotation_axis(axis, angle) end

---The rotation of a matrix, read from its upper left 3x3 block.
---
---The block has to be a pure rotation: scale is not taken out and falsifies the result, so hand in `m.rotation` of a
---scaled matrix. Sixteen zeros give (1, 0, 0, 0), NaN gives NaN.
---@nodiscard
---@param m math3d.Matrix
---@return math3d.Rotation
---@see math3d.matrix_rotation_quaternion is the way back
function math3d.quaternion_rotation_matrix(m) end

---The rotation of three angles: about z first, then about x, then about y, which is roll, pitch, yaw. `Qy * Qx * Qz`.
---
---Mind the order of the arguments: pitch, yaw, roll.
---@nodiscard
---@param x number Pitch, radians.
---@param y number Yaw, radians.
---@param z number Roll, radians.
---@return math3d.Rotation
---@see math3d.quaternion_to_rotation_xzy is the way back
---@see math3d.matrix_rotation_zxy gives a matrix
function math3d.quaternion_rotation_zxy(x, y, z) end

---`quaternion_rotation_zxy` of the three components.
---@nodiscard
---@param angles math3d.Vector3 Radians: pitch, yaw, roll.
---@return math3d.Rotation
---@see math3d.quaternion_to_rotation_xzy is the way back
function math3d.quaternion_rotation_zxy_from_vector(angles) end

---The shortest turn that takes one direction to the other. **Normalise both first**: the bounds are absolute.
---
---Unit vectors less than 0.8 degrees apart give the identity, and so do, at any angle, two that are shorter than 0.007,
---and a zero vector. Opposite unit vectors, to within 0.8 degrees, give the half turn about **+y, whatever they are**:
---it leaves up and down as they are.
---@nodiscard
---@param from math3d.Vector3
---@param to math3d.Vector3
---@return math3d.Rotation
---@see math3d.Matrix.make_rotation_between takes any lengths, angles from 0.02 degrees on, and opposite vectors
function math3d.quaternion_rotation_fromto(from, to) end

---Axis and angle, as two results.
---
---The axis is (x, y, z) as it stands: of a unit quaternion it has the length `sin(angle / 2)`, so normalise it before
---use, and it is zero where nothing turns. The angle is `2 * acos(w)` within 1e-4; a w above 1 counts as 1, one below
----1 as -1.
---@nodiscard
---@param q math3d.Rotation
---@return math3d.Vector3 axis
---@return number angle Radians, 0 to 2 pi.
---@see math3d.Rotation.get_axis_angle gives the two in a table
function math3d.quaternion_to_axis_angle(q) end

---The zxy angles of a unit quaternion, **in spite of the name**: the inverse of `quaternion_rotation_zxy_from_vector`.
---
---Within about 0.1 degrees of a pitch of +pi/2 or -pi/2, where yaw and roll turn about one axis, the roll is 0 and the
---yaw takes what is left; the pitch is off by up to 0.001 there.
---@nodiscard
---@param q math3d.Rotation
---@return math3d.Vector3 # Radians: pitch in -pi/2 to pi/2, yaw and roll in -pi to pi.
---@see math3d.quaternion_to_euler_xyz is another convention
---@see math3d.quaternion_to_euler_zyx is another convention
function math3d.quaternion_to_rotation_xzy(q) end

---The zyx angles of a unit quaternion: x first, then y, then z; `Qz * Qy * Qx`. **Not those of
---`quaternion_rotation_zxy`.**
---
---Nothing is done about the poles: near a y angle of +pi/2 or -pi/2 the others are not settled, and it is off by up to
---0.001.
---@nodiscard
---@param q math3d.Rotation
---@return math3d.Vector3 # Radians about x, y, z; y in -pi/2 to pi/2, x and z in -pi to pi.
---@see math3d.quaternion_to_rotation_xzy gives yaw, pitch and roll
---@see math3d.quaternion_to_euler_xyz is another convention
function math3d.quaternion_to_euler_zyx(q) end

---The xyz angles of a unit quaternion: z first, then y, then x; `Qx * Qy * Qz`. **Not those of
---`quaternion_rotation_zxy`.**
---
---Nothing is done about the poles: near a y angle of +pi/2 or -pi/2 the others are not settled, and it is off by up to
---0.001.
---@nodiscard
---@param q math3d.Rotation
---@return math3d.Vector3 # Radians about x, y, z; y in -pi/2 to pi/2, x and z in -pi to pi.
---@see math3d.quaternion_to_rotation_xzy gives yaw, pitch and roll
---@see math3d.quaternion_to_euler_zyx is another convention
function math3d.quaternion_to_euler_xyz(q) end

-- ## Matrices
-- These build a new `Matrix`. The class has builders of its own, which are named `make_...` and differ in degenerate
-- cases.

---The identity, the same as `Matrix.new()`.
---@nodiscard
---@return math3d.Matrix
function math3d.matrix_identity() end

---The inverse.
---
---There is no test of the determinant: a singular matrix gives infinities and NaN.
---@nodiscard
---@param m math3d.Matrix
---@return math3d.Matrix
---@see math3d.Matrix.inverse changes its matrix
function math3d.matrix_inverse(m) end

---A matrix that moves.
---@nodiscard
---@param x number
---@param y number
---@param z number
---@return math3d.Matrix
function math3d.matrix_translation(x, y, z) end

---A matrix that moves by a vector.
---@nodiscard
---@param offset math3d.Vector3
---@return math3d.Matrix
---@see math3d.Matrix.make_translation is the same
function math3d.matrix_translation_from_vector(offset) end

---A matrix that scales about the origin: the diagonal (x, y, z, 1).
---@nodiscard
---@param x number
---@param y number
---@param z number
---@return math3d.Matrix
---@see math3d.Matrix.do_scale replaces the scale of a matrix
function math3d.matrix_scaling(x, y, z) end

---`matrix_scaling` of the three components.
---@nodiscard
---@param factors math3d.Vector3
---@return math3d.Matrix
function math3d.matrix_scaling_from_vector(factors) end

---The rotation of a unit quaternion as a matrix: `v * m` is `q:rotate_vector(v)`.
---
---Nothing is normalised: a quaternion of another length gives no rotation. The zero quaternion gives the identity.
---@nodiscard
---@param q math3d.Rotation
---@return math3d.Matrix
---@see math3d.quaternion_rotation_matrix is the way back
function math3d.matrix_rotation_quaternion(q) end

---The turn about an axis of any length. Accuracy as of `Matrix.make_rotation_x`.
---
---A zero axis gives the diagonal (c, c, c, 1) with the cosine c of the angle, which is no rotation; an axis from about
---1.8e19 on, NaN.
---@nodiscard
---@param axis math3d.Vector3
---@param angle number Radians.
---@return math3d.Matrix
---@see math3d.matrix_rotation_normal wants an axis of length 1
---@see math3d.quaternion_rotation_axis gives a quaternion
function math3d.matrix_rotation_axis(axis, angle) end

---The turn about an axis of length 1, which is not normalised: **another length gives no rotation**.
---@nodiscard
---@param normal math3d.Vector3
---@param angle number Radians.
---@return math3d.Matrix
---@see math3d.matrix_rotation_axis takes any length
function math3d.matrix_rotation_normal(normal, angle) end

---The rotation of three angles: about z first, then about x, then about y, which is roll, pitch, yaw. Up to rounding,
---`make_rotation_z(z) * make_rotation_x(x) * make_rotation_y(y)`.
---
---Mind the order of the arguments: pitch, yaw, roll. `yaw`, `pitch` and `roll` of the matrix give them back.
---@nodiscard
---@param x number Pitch, radians.
---@param y number Yaw, radians.
---@param z number Roll, radians.
---@return math3d.Matrix
---@see math3d.quaternion_rotation_zxy gives a quaternion
function math3d.matrix_rotation_zxy(x, y, z) end

---`matrix_rotation_zxy` of the three components.
---@nodiscard
---@param angles math3d.Vector3 Radians: pitch, yaw, roll.
---@return math3d.Matrix
function math3d.matrix_rotation_zxy_from_vector(angles) end

---The rotation that looks along `forward`, its row 2, with row 1 towards `up`. Lengths play no part.
---
---**No replacements**: an up along forward, or a zero one, leaves rows 0 and 1 zero; a zero forward leaves rows 0 to 2
---zero.
---@nodiscard
---@param forward math3d.Vector3
---@param up math3d.Vector3
---@return math3d.Matrix
---@see math3d.Matrix.make_orient replaces an up along forward
function math3d.matrix_rotation_look(forward, up) end

---The three vectors as rows 0 to 2, as they come: nothing is normalised or made perpendicular, in spite of the name.
---@nodiscard
---@param right math3d.Vector3
---@param up math3d.Vector3
---@param forward math3d.Vector3
---@return math3d.Matrix
---@see math3d.Matrix.orthogonalize straightens them
function math3d.matrix_ortho_normal_basis(right, up, forward) end

---Scale first, then rotation, then translation, in one matrix. **The arguments stand the other way round**: position,
---rotation, scale.
---
---The rotation is not normalised; the zero quaternion turns nothing. An infinite or NaN scale spoils its whole row,
---column 3 included.
---@nodiscard
---@param position math3d.Vector3
---@param rotation math3d.Rotation
---@param scale math3d.Vector3
---@return math3d.Matrix
function math3d.matrix_transformation_prs(position, rotation, scale) end

-- ## Byte colours
-- On `Color32`: bytes with 255 as full scale, in integers where nothing else is told. The integer form of a colour is
-- 0xAARRGGBB.

---A colour of four integers, **the alpha last**. Of each the low 8 bits count: 257 is 1, -1 is 255.
---@nodiscard
---@param r integer
---@param g integer
---@param b integer
---@param a integer
---@return math3d.Color32
---@see math3d.Color32.new has the alpha first
function math3d.color32_from_rgba(r, g, b, a) end

---The colour of an integer 0xAARRGGBB, of which the low 32 bits count.
---@nodiscard
---@param word integer
---@return math3d.Color32
function math3d.color32_from_int(word) end

---The colour as an integer 0xAARRGGBB, never negative: opaque white is 4294967295.
---@nodiscard
---@param color math3d.Color32
---@return integer
function math3d.color32_to_int(color) end

---Opaque black.
---@nodiscard
---@return math3d.Color32
function math3d.color32_black() end

---Opaque white.
---@nodiscard
---@return math3d.Color32
function math3d.color32_white() end

---A blend of two colours: `a * (1 - t) + b * t` in floats on all channels, cut towards 0 and saturated.
---
---Cutting what rounding left can lose 1, even between equal colours. NaN gives 0, and so does a channel that a `t` of
---millions takes beyond 2147483648.
---@nodiscard
---@param a math3d.Color32
---@param b math3d.Color32
---@param t number 0 is a, 1 is b. Not clamped.
---@return math3d.Color32
---@see math3d.Color32.intrp changes its colour, and keeps equal channels exactly
function math3d.color32_lerp(a, b, t) end

---`b` laid over `a` by the alpha of b: `(a * (255 - b.a) + b * b.a) / 255`, cut. An opaque b shows b. The alpha of the
---result is `a.a * b.a / 255`, cut.
---@nodiscard
---@param a math3d.Color32
---@param b math3d.Color32
---@return math3d.Color32
---@see math3d.color_blend goes the other way: an opaque b shows a
function math3d.color32_blend(a, b) end

---Product on all channels, `a * b / 256`, cut: **white times white is 254**, and every product loses a little.
---@nodiscard
---@param a math3d.Color32
---@param b math3d.Color32
---@return math3d.Color32
---@see math3d.color_multiply loses nothing
function math3d.color32_multiply(a, b) end

-- ## Float colours
-- On `ColorF`: floats with 1 as full scale, not clamped.

---A colour of four integers with 255 as full scale, **the alpha last**: each is divided by 255. Nothing is cut to a
---byte or clamped: 300 gives 1.1764706.
---@nodiscard
---@param r integer
---@param g integer
---@param b integer
---@param a integer
---@return math3d.ColorF
---@see math3d.ColorF.new has the alpha first, and 1 as full scale
function math3d.color_from_rgba(r, g, b, a) end

---The colour of bytes, each divided by 255.
---@nodiscard
---@param color math3d.Color32
---@return math3d.ColorF
function math3d.color_from_color32(color) end

---The colour as bytes: each channel times 255, rounded and saturated. NaN gives 0.
---@nodiscard
---@param color math3d.ColorF
---@return math3d.Color32
function math3d.color_to_color32(color) end

---The colour of an integer 0xAARRGGBB, of which the low 32 bits count.
---@nodiscard
---@param word integer
---@return math3d.ColorF
function math3d.color_from_int(word) end

---The colour as an integer 0xAARRGGBB, rounded and saturated as by `color_to_color32`; never negative.
---@nodiscard
---@param color math3d.ColorF
---@return integer
function math3d.color_to_int(color) end

---Opaque white, (1, 1, 1, 1).
---@nodiscard
---@return math3d.ColorF
function math3d.color_white() end

---Opaque black, (0, 0, 0, 1).
---@nodiscard
---@return math3d.ColorF
function math3d.color_black() end

---A blend of two colours: `(1 - t) * a + b * t` on all channels, not clamped.
---@nodiscard
---@param a math3d.ColorF
---@param b math3d.ColorF
---@param t number 0 is a, 1 is b. Not clamped.
---@return math3d.ColorF
---@see math3d.ColorF.intrp changes its colour
function math3d.color_lerp(a, b, t) end

---A blend by the alpha of b: `b.a * a + (1 - b.a) * b`. **An opaque b shows a**, a transparent one shows b. The alpha
---of the result is `a.a * b.a`.
---@nodiscard
---@param a math3d.ColorF
---@param b math3d.ColorF
---@return math3d.ColorF
---@see math3d.color32_blend goes the other way: an opaque b shows b
function math3d.color_blend(a, b) end

---Product on all channels, the alpha too.
---@nodiscard
---@param a math3d.ColorF
---@param b math3d.ColorF
---@return math3d.ColorF
---@see math3d.color32_multiply divides by 256
function math3d.color_multiply(a, b) end

-- ## Planes
-- On `Plane`, read as `normal . p + dist == 0`: **the opposite sign of `dist` from the class**. Nothing converts
-- between the two, and no function normalises a plane that it is given.

---The plane through a point: `dist` is `-(point . normal)`. The normal is taken as it comes.
---@nodiscard
---@param point math3d.Vector3
---@param normal math3d.Vector3
---@return math3d.Plane
---@see math3d.Plane.new has the arguments the other way round and the other sign of dist
function math3d.plane_from_point_normal(point, normal) end

---The plane through three points, with a normal of length 1 along `(a - b) x (a - c)`.
---
---Points on one line, or so close that squares vanish, give the plane of zeros; points so far apart that squares
---overflow, NaN.
---@nodiscard
---@param a math3d.Vector3
---@param b math3d.Vector3
---@param c math3d.Vector3
---@return math3d.Plane
---@see math3d.Plane.new has the same direction of the normal and the other sign of dist
function math3d.plane_from_points(a, b, c) end

---Signed distance of a point, `normal . point + dist`: positive on the side that the normal points to, in units of the
---normal's length. A zero normal gives `dist`.
---@nodiscard
---@param plane math3d.Plane
---@param point math3d.Vector3
---@return number
---@see math3d.Plane.distance_to reads dist with the other sign
function math3d.plane_dist_from_point(plane, point) end

---The point where an infinite line meets a plane; it need not lie between the two points.
---
---nil where the heights of the two points above the plane differ by 1.2e-7 or less, as for a parallel line or two equal
---points, and where the x of the result is NaN.
---@nodiscard
---@param plane math3d.Plane
---@param p1 math3d.Vector3
---@param p2 math3d.Vector3
---@return math3d.Vector3?
function math3d.plane_intersect_line(plane, p1, p2) end

---Two points of the line in which two planes meet: the one nearest to the origin, and one further on by `b.normal x
---a.normal`.
---
---A single nil for parallel planes, where that product's square is 1.2e-7 or less: also for normals shorter than about
---0.02 at any angle. nil too where the x of the first point is NaN.
---@nodiscard
---@param a math3d.Plane
---@param b math3d.Plane
---@return math3d.Vector3? first
---@return math3d.Vector3? second
function math3d.plane_intersect_plane(a, b) end

---The point that three planes share. nil where `a` and `b` are parallel, where their line is parallel to `c`, and where
---the x of the result is NaN.
---@nodiscard
---@param a math3d.Plane
---@param b math3d.Plane
---@param c math3d.Plane
---@return math3d.Vector3?
---@see math3d.plane_intersect_plane tells when a and b count as parallel
function math3d.plane_intersect_planes(a, b, c) end

-- ## Boxes
-- On `Aabb`.

---The box of the eight corners under a transform, each divided by a w of its own. Of a turned box it is larger than the
---box.
---
---Its `center` is up to date, also under the identity. **An empty box becomes a huge one**: test for it first. A w of 0
---gives infinity or NaN.
---@nodiscard
---@param box math3d.Aabb
---@param m math3d.Matrix
---@return math3d.Aabb
function math3d.aabb_transform(box, m) end

return math3d

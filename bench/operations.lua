-- The calls that are measured: the kind of the call, what kind of value it is about, the call as a script writes it.
--
-- A call runs with each module that has its names: the library, the floor, plain Lua. `compile` makes it a function
-- that repeats the call. A function is fetched once, as a script on a hot road does; a method is looked up every time.

-- The values that calls name.
local values = {
  {"v2", "Vector2.new(1.5, -2)"}, {"w2", "Vector2.new(0.25, 4)"},
  {"v", "Vector3.new(1.5, -2, 3)"}, {"w", "Vector3.new(0.25, 4, -1)"}, {"out", "Vector3.new(-3, 0.5, 2)"},
  {"v4", "Vector4.new(1.5, -2, 3, 1)"}, {"w4", "Vector4.new(0.25, 4, -1, 2)"},
  {"q", "Rotation.new(0.5, 0.5, 0.5, 0.5)"}, {"r", "Rotation.new(0, 0.6, 0, 0.8)"}, {"p", "Rotation.new(0, 0, 0, 1)"},
  {"plane", "Plane.new(0.0, 1.0, 0.0, 2.0)"}, {"other", "Plane.new(1.0, 0.0, 0.0, 3.0)"},
  {"ray", "Ray.new(m.Vector3.new(1, 2, 3), m.Vector3.new(0, 0, 1))"},
  {"rect", "RectF.new(1, 2, 30, 40)"}, {"offset", "RectOffset.new(1, 2, 3, 4)"},
  {"c", "Color32.new(255, 10, 20, 30)"}, {"d", "Color32.new(128, 200, 100, 50)"}, {"e", "Color32.new(0, 1, 2, 3)"},
  {"cf", "ColorF.new(1, 0.1, 0.2, 0.3)"}, {"df", "ColorF.new(0.5, 0.9, 0.7, 0.4)"},
  {"M", "matrix_translation(1, 2, 3)"}, {"N", "matrix_translation(3, -2, 1)"},
  {"A", "Matrix33.new()"}, {"B", "Matrix33.new()"},
  {"box", "Aabb.new(m.Vector3.new(1, 2, 3), m.Vector3.new(2, 2, 2))"},
  {"cube", "Aabb.new(m.Vector3.new(1, 2, 3), m.Vector3.new(2, 2, 2))"},
}

local list = {
  {"function", "number", "radians(90.5)"},
  {"function", "number", "clamp(0.3, 1, 2)"},
  {"function", "number", "lerp_angle(0.1, 3.5, 0.25)"},
  {"function", "dummy", "vector3_dot(v, w)"},
  {"function", "dummy", "vector3_cross(v, w)"},
  {"function", "dummy", "vector3_lerp(v, w, 0.25)"},
  {"function", "dummy", "vector3_length(v)"},
  {"function", "dummy", "vector3_rotate(v, q)"},
  {"function", "dummy", "vector4_dot(v4, w4)"},
  {"function", "dummy", "quaternion_multiply(q, r)"},
  {"function", "dummy", "quaternion_slerp(q, r, 0.25)"},
  {"function", "dummy", "quaternion_identity()"},
  {"function", "dummy", "quaternion_rotation_zxy(0.1, 0.2, 0.3)"},
  {"function", "dummy", "color32_to_int(c)"},
  {"function", "dummy", "color32_blend(c, d)"},
  {"function", "dummy", "color_lerp(cf, df, 0.25)"},
  {"function", "nested", "plane_from_points(v, w, out)"},
  {"function", "nested", "plane_dist_from_point(plane, v)"},
  {"function", "tuple", "smooth_damp(1.0, 2.0, 0.5, 0.3, nil, 0.02)"},
  {"function", "tuple", "vector3_smooth_damp(v, w, out, 0.3, nil, 0.02)"},
  {"function", "tuple", "quaternion_to_axis_angle(q)"},
  {"function", "tuple", "plane_intersect_plane(plane, other)"},
  {"function", "wrapped", "vector3_transform_coord(v, M)"},
  {"function", "wrapped", "vector4_transform(v4, M)"},
  {"function", "wrapped", "quaternion_rotation_matrix(M)"},
  {"function", "wrapped", "matrix_identity()"},
  {"function", "wrapped", "matrix_inverse(M)"},
  {"function", "wrapped", "matrix_translation(1, 2, 3)"},
  {"function", "wrapped", "matrix_rotation_quaternion(q)"},
  {"function", "wrapped", "matrix_transformation_prs(v, q, w)"},
  {"function", "wrapped", "aabb_transform(box, M)"},

  {"constructor", "dummy", "Vector2.new(1.5, 2.5)"},
  {"constructor", "dummy", "Vector3.new()"},
  {"constructor", "dummy", "Vector3.new(v)"},
  {"constructor", "dummy", "Vector3.new(1.5, 2.5, 3.5)"},
  {"constructor", "dummy", "Vector4.new(1.5, 2.5, 3.5, 4.5)"},
  {"constructor", "dummy", "Vector4.new(v, 1)"},
  {"constructor", "dummy", "Rotation.new(0, 0, 0, 1)"},
  {"constructor", "dummy", "RectF.new(1, 2, 30, 40)"},
  {"constructor", "dummy", "RectOffset.new(1, 2, 3, 4)"},
  {"constructor", "dummy", "Color32.new(255, 10, 20, 30)"},
  {"constructor", "dummy", "Color32.new(cf)"},
  {"constructor", "dummy", "ColorF.new(1, 0.5, 0.25, 0.125)"},
  {"constructor", "nested", "Plane.new(v, 2.5)"},
  {"constructor", "nested", "Plane.new(plane)"},
  {"constructor", "nested", "Ray.new(v, w)"},
  {"constructor", "wrapped", "Matrix.new()"},
  {"constructor", "wrapped", "Matrix.new(M)"},
  {"constructor", "wrapped", "Matrix33.new()"},
  {"constructor", "wrapped", "Aabb.new(v, w)"},

  {"operator", "dummy", "v + w"},
  {"operator", "dummy", "v == w"},
  {"operator", "dummy", "v2 + w2"},
  {"operator", "dummy", "v4 + w4"},
  {"operator", "dummy", "rect + v2"},
  {"operator", "dummy", "c == d"},
  {"operator", "dummy", "cf + df"},
  {"operator", "nested", "plane == other"},
  {"operator", "wrapped", "M + N"},
  {"operator", "wrapped", "A * B"},
  {"operator", "wrapped", "box == cube"},

  {"overload", "dummy", "v * w"},
  {"overload", "dummy", "v * 2.5"},
  {"overload", "dummy", "v / 2.5"},
  {"overload", "dummy", "v2 * 2.5"},
  {"overload", "dummy", "v4 * w4"},
  {"overload", "dummy", "q * r"},
  {"overload", "wrapped", "v * M"},
  {"overload", "wrapped", "M * N"},
  {"overload", "wrapped", "M * 2.5"},

  {"method", "dummy", "v:distance(w)"},
  {"method", "dummy", "v:cross(w)"},
  {"method", "dummy", "v2:dot(w2)"},
  {"method", "dummy", "q:rotate_vector(v)"},
  {"method", "nested", "plane:distance_to(v)"},
  {"method", "wrapped", "M:get(1, 2)"},
  {"method", "wrapped", "M:mulvec3x3(v)"},
  {"method", "wrapped", "A:get(1, 2)"},
  {"method", "table", "v:to_list()"},
  {"method", "table", "q:get_axis_angle()"},
  {"method", "table", "box:get_corners()"},
  {"method", "text", "v:to_string()"},
  {"method", "text", "tostring(v)"},
  {"method", "text", "tostring(M)"},

  {"getter", "dummy", "v.length"},
  {"getter", "dummy", "v.is_zero"},
  {"getter", "dummy", "v.yaw"},
  {"getter", "dummy", "v2.length"},
  {"getter", "dummy", "q.forward"},
  {"getter", "dummy", "rect.width"},
  {"getter", "dummy", "rect.min"},
  {"getter", "wrapped", "M.translation"},
  {"getter", "wrapped", "M.m33"},
  {"getter", "wrapped", "M.yaw"},
  {"getter", "wrapped", "box.min"},
  {"getter", "wrapped", "box.center"},

  {"setter", "dummy", "rect.width = 5.0"},
  {"setter", "dummy", "rect.min = v2"},
  {"setter", "wrapped", "M.translation = v"},
  {"setter", "wrapped", "box.min = v"},

  {"mutator", "dummy", "v:set(1.0, 2.0, 3.0)"},
  {"mutator", "dummy", "v:normalize()"},
  {"mutator", "dummy", "out:intrp(v, w, 0.25)"},
  {"mutator", "dummy", "p:slerp(q, r, 0.25)"},
  {"mutator", "dummy", "e:intrp(c, d, 0.25)"},
  {"mutator", "dummy", "cf:clamp()"},
  {"mutator", "nested", "plane:project_point(out, v)"},
  {"mutator", "wrapped", "M:set(1, 2, 0.5)"},
  {"mutator", "wrapped", "M:set_identity()"},
  {"mutator", "wrapped", "M:do_translate(v)"},
  {"mutator", "wrapped", "M:inverse()"},
  {"mutator", "wrapped", "A:Transpose()"},
}

-- The twelve (`operation.twelve`) that the naive road is measured with; all but the last two also in plain Lua with the
-- library's checks.
local twelve = {
  "Vector3.new(1.5, 2.5, 3.5)", "v + w", "vector3_dot(v, w)", "vector3_cross(v, w)", "vector3_length(v)",
  "vector3_lerp(v, w, 0.25)", "quaternion_multiply(q, r)", "quaternion_slerp(q, r, 0.25)", "vector3_rotate(v, q)",
  "quaternion_rotation_zxy(0.1, 0.2, 0.3)", "M * N", "matrix_inverse(M)",
}

for _, operation in ipairs(list) do
  for _, call in ipairs(twelve) do
    operation.twelve = operation.twelve or operation[3] == call
  end
end

-- Two functions of a call with what the module `m` has: (n), which makes it n times, and (), which gives its results.
-- An empty call is the loop alone.
local function compile(call, m)
  local lines = {"local m, tostring = ..., tostring"}
  for _, value in ipairs(values) do
    if (" " .. call .. " "):find("[^%w_.]" .. value[1] .. "[^%w_]") then
      lines[#lines + 1] = ("local %s = m.%s"):format(value[1], value[2])
    end
  end
  local callee, arguments = call:match("^([%w_.]+)(%b())$")
  if callee and callee ~= "tostring" then
    lines[#lines + 1] = ("local f = m.%s"):format(callee)
    call = "f" .. arguments
  end
  local is_expression = call ~= "" and not call:find(" = ")
  lines[#lines + 1] = ("return function(n) for _ = 1, n do %s end end, function() %s end"):format(
    (is_expression and "local _ = " or "") .. call, (is_expression and "return " or "") .. call)
  return assert(load(table.concat(lines, "\n"), "=" .. call))(m)
end

return {list = list, compile = compile}

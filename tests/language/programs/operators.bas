' Operators.
Print 7 + 2, 7 - 2, 7 * 2, 7 / 2, 7 \ 2, -7 \ 2, 7 Mod 3, -7 Mod 3, 2 ^ 10 '> 9 5 14 3.5 3 -3 1 -1 1024
Print -2 ^ 2, 2 ^ -1, 2 ^ 3 ^ 2, 2 + 3 * 4, (2 + 3) * 4, 10 - 4 - 3, 2 * 7 Mod 4, 1 + 2 & 3 + 4, 7.9 \ 2.9 '> -4 0.5 64 14 20 3 2 37 3
Print Not 1 = 2, 1 < 2 And 2 < 3, True Or False And False, True Xor True Or True '> True True True False
Print 12 And 10, 12 Or 10, 12 Xor 10, Not 0, Not -1 '> 8 14 6 -1 0
' Each operator next to operators of the next higher precedence, then next to operators of the same precedence.
Print 2 * 3 ^ 2, 18 / 3 ^ 2, 19 \ 3 ^ 2, 20 Mod 3 ^ 2 '> 18 2 2 2
Print 7 + 9 * 4, 7 + 9 / 4, 7 + 9 \ 4, 7 + 9 Mod 4, 7 - 9 * 4, 7 - 9 Mod 4 '> 43 9.25 9 8 -29 6
Print 1 & 2 + 3, 1 & 5 - 2 '> 15 13
Print "ab" = "a" & "b", "b" <> "a" & "b", "ab" < "a" & "c", "ab" > "a" & "a", "ab" <= "a" & "b", "ab" >= "a" & "b" '> True True True True True True
Print Not 1 <> 2, Not 1 < 2, Not -2 > 1, Not 1 <= 2, Not -2 >= 2, Not True And False '> False False True False True False
Print False And True = False, False And False <> True, True And 2 > 1, True And 2 >= 2, True And 1 <= 2, True And Nil Is Nil '> False False True True True True
Print 9 \ 4 * 3, 9 Mod 4 * 3, 9 * 4 Mod 5, 9 / 2 * 3, 7 - 2 + 1 '> 6 3 1 13.5 6
Dim v() As Boolean
Print False And v(0), True Or v(0) '> False True
Print 1 < 2, 2 <= 2, 3 > 2.5, 2 >= 3, 1 = 1.0, 1 <> 1, True = False, "a" <> "b" '> True True True False True False False True
Print "Z" < "a", "a" = "A", "a" < "ab", "é" > "z", "abc" + "" = "abc" '> True False True True True
Print "a" & 1 & 0.5 & True & #010203 & Nil & "", "a" + "b" '> a10.5True#010203Nil ab

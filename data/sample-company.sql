-- A small Hungarian company to look around in: what `quillanectl init --sample` fills a new company file with.
-- Each statement ends with a semicolon at the end of a line. Keys are fixed, since the company is empty before.

insert into t_partner (t_partner_id, name, address, taxnumber) values
  (1, 'Tölgyfa Bútor Kft.', '6720 Szeged, Kárász utca 12.', '12345676-2-06'),
  (2, 'Őrségi Vendégház Bt.', '9941 Őriszentpéter, Városszer 45.', '23456785-1-18'),
  (3, 'Kőszegi Általános Iskola', '9730 Kőszeg, Várkör 30.', '34567894-2-18'),
  (4, 'Szűcs Ödön egyéni vállalkozó', '5000 Szolnok, Tisza-parti sétány 7.', '45678903-1-36'),
  (5, 'Zöldág Nagykereskedelmi Zrt.', '1097 Budapest, Gyáli út 21.', '56789012-2-43'),
  (6, 'Szikra Tűzvédelem Kft.', '3525 Miskolc, Széchenyi utca 8.', '67890121-2-05');

insert into t_product (t_product_id, name, unit, price) values
  (1, 'Hordozható számítógép, 14"', 'db', '289900'),
  (2, 'Porral oltó tűzoltó készülék, 6 kg', 'db', '15490'),
  (3, 'Érlelt kecskesajt', 'kg', '5890'),
  (4, 'Zománcfesték, selyemfényű', 'doboz', '4250'),
  (5, 'Hosszabbító kábel, 3 × 1,5 mm²', 'm', '689.5'),
  (6, 'Nyomtatópapír, A4, 500 lap', 'csomag', '1990');

insert into t_service (t_service_id, name, unit, price) values
  (1, 'Üzembe helyezés', 'óra', '12000'),
  (2, 'Rendszeres karbantartás', 'hó', '35000'),
  (3, 'Kiszállítás', 'alkalom', '2500');

insert into t_suite (t_suite_id, name, unit, price) values
  (1, 'Irodai munkahely: gép, képernyő, beállítás', 'készlet', '459000'),
  (2, 'Ajándékkosár: sajt, lekvár, bor', 'db', '18900');

-- Every kind (1 text, 2 date, 3 list), for every item or every unit (process 1), mandatory and optional.
insert into t_itemvariable (t_itemvariable_id, name, type, process, mandatory, vvalue) values
  (1, 'Gyári szám', 1, 1, 1, ''),
  (2, 'Tárolási hely', 1, 1, 0, ''),
  (3, 'Lejárat', 2, 1, 1, ''),
  (4, 'Garancia vége', 2, 1, 0, ''),
  (5, 'Szín', 3, 1, 1, 'fehér, fekete, piros, kék, zöld'),
  (6, 'Kiszerelés', 3, 1, 0, '0.75 l, 2.5 l, 10 l'),
  (7, 'Szerződésszám', 1, 0, 1, ''),
  (8, 'Megjegyzés a vevőnek', 1, 0, 0, ''),
  (9, 'Teljesítés napja', 2, 0, 1, ''),
  (10, 'Szavatosság vége', 2, 0, 0, ''),
  (11, 'Szállítás módja', 3, 0, 1, 'személyes átvétel, futár, csomagpont'),
  (12, 'Csomagolás', 3, 0, 0, 'papír, fólia, díszdoboz');

-- Direction 100 is outgoing, 200 incoming.
insert into t_productitemdata (t_product_1, t_itemvariable_1, position, direction) values
  (1, 1, 1, 100), (1, 4, 2, 100), (1, 2, 3, 100), (1, 1, 1, 200), (1, 2, 2, 200),
  (2, 11, 1, 100), (2, 1, 2, 100), (2, 3, 3, 100), (2, 1, 1, 200), (2, 3, 2, 200),
  (3, 12, 1, 100), (3, 3, 2, 100), (3, 3, 1, 200), (3, 2, 2, 200),
  (4, 5, 1, 100), (4, 6, 2, 100), (4, 5, 1, 200), (4, 6, 2, 200),
  (5, 8, 1, 100), (5, 10, 1, 200);

insert into t_serviceitemdata (t_service_1, t_itemvariable_1, position, direction) values
  (1, 7, 1, 100), (1, 9, 2, 100), (1, 7, 1, 200),
  (2, 7, 1, 100), (2, 10, 2, 100), (2, 7, 1, 200), (2, 9, 2, 200);

insert into t_suiteitemdata (t_suite_1, t_itemvariable_1, position, direction) values
  (1, 11, 1, 100), (1, 1, 2, 100), (1, 4, 3, 100), (1, 1, 1, 200),
  (2, 8, 1, 100), (2, 12, 2, 100), (2, 3, 3, 100), (2, 3, 1, 200);

-- Documents: one of every status at least. Closed ones have a number, counted within their status.
insert into t_invoice
  (t_invoice_id, number, partnernumber, t_invoicestatus_1, statusgate, issuedate, t_partner_1, t_invoice_1, version)
values
  (1, NULL, NULL, 801, 1, '2025-03-03', 1, NULL, 1),
  (2, NULL, NULL, 401, 1, '2025-03-05', 2, NULL, 1),
  (3, 1, NULL, 451, 0, '2025-03-06', 3, NULL, 1),
  (4, 2, NULL, 451, 0, '2025-03-07', 4, NULL, 1),
  (5, 1, NULL, 452, 0, '2025-03-10', 4, 4, 1),
  (6, NULL, NULL, 101, 1, '2025-03-11', 1, NULL, 1),
  (7, NULL, NULL, 101, 1, '2025-03-12', 2, NULL, 1),
  (8, NULL, NULL, 101, 1, '2025-03-13', 3, NULL, 1),
  (9, NULL, NULL, 102, 1, '2025-03-14', 4, NULL, 1),
  (10, 1, NULL, 151, 0, '2025-03-17', 1, NULL, 1),
  (11, 2, NULL, 151, 0, '2025-03-18', 2, NULL, 1),
  (12, 1, NULL, 152, 0, '2025-03-19', 2, 11, 1),
  (13, NULL, 'ZN-2025/00871', 201, 1, '2025-03-20', 5, NULL, 1),
  (14, NULL, 'SZT-D/112', 202, 1, '2025-03-20', 6, NULL, 1),
  (15, 1, 'ZN-2025/00655', 251, 0, '2025-03-21', 5, NULL, 1),
  (16, 2, 'SZT-2025/0042', 251, 0, '2025-03-24', 6, NULL, 1),
  (17, 1, 'SZT-2025/0042-S', 252, 0, '2025-03-25', 6, 16, 1),
  -- An order, what was delivered of it, a part of that invoiced, and the draft with the rest.
  (18, NULL, NULL, 801, 1, '2025-03-26', 3, NULL, 1),
  (19, 3, NULL, 451, 0, '2025-03-27', 3, NULL, 1),
  (20, 3, NULL, 151, 0, '2025-03-28', 3, NULL, 1),
  (21, NULL, NULL, 101, 1, '2025-03-31', 3, NULL, 1),
  -- The first order delivered and invoiced, and the invoice cancelled: the delivery note has everything back.
  (22, 4, NULL, 451, 0, '2025-03-28', 1, NULL, 1),
  (23, 4, NULL, 151, 0, '2025-03-31', 1, NULL, 1),
  (24, 2, NULL, 152, 0, '2025-04-01', 1, 23, 1);

insert into t_invoiceitem
  (t_invoiceitem_id, t_invoice_1, position, articlekind, articleid, name, unit, quantity, price, originmode, t_invoiceitem_1)
values
  (1, 1, 1, 1, 1, 'Hordozható számítógép, 14"', 'db', '3', '289900', 0, NULL),
  (2, 1, 2, 2, 1, 'Üzembe helyezés', 'óra', '2', '12000', 0, NULL),
  (3, 2, 1, 1, 3, 'Érlelt kecskesajt', 'kg', '4.5', '5890', 0, NULL),
  (4, 3, 1, 1, 2, 'Porral oltó tűzoltó készülék, 6 kg', 'db', '2', '15490', 0, NULL),
  (5, 4, 1, 1, 4, 'Zománcfesték, selyemfényű', 'doboz', '3', '4250', 0, NULL),
  (6, 5, 1, 1, 4, 'Zománcfesték, selyemfényű', 'doboz', '3', '4250', 0, NULL),
  -- The draft whose check is green.
  (7, 6, 1, 1, 1, 'Hordozható számítógép, 14"', 'db', '2', '289900', 0, NULL),
  (8, 6, 2, 1, 3, 'Érlelt kecskesajt', 'kg', '2.5', '5890', 0, NULL),
  (9, 6, 3, 2, 1, 'Üzembe helyezés', 'óra', '3', '12000', 0, NULL),
  (10, 6, 4, 3, 1, 'Irodai munkahely: gép, képernyő, beállítás', 'készlet', '1', '459000', 0, NULL),
  (11, 6, 5, 1, 6, 'Nyomtatópapír, A4, 500 lap', 'csomag', '10', '1990', 0, NULL),
  (12, 6, 6, 0, 0, 'Egyedi felirat, kézzel festve', 'db', '1', '7500', 0, NULL),
  -- The draft with missing values.
  (13, 7, 1, 1, 2, 'Porral oltó tűzoltó készülék, 6 kg', 'db', '2', '15490', 0, NULL),
  (14, 7, 2, 2, 2, 'Rendszeres karbantartás', 'hó', '12', '35000', 0, NULL),
  -- The draft with too many rows.
  (15, 8, 1, 1, 4, 'Zománcfesték, selyemfényű', 'doboz', '4', '4250', 0, NULL),
  (16, 9, 1, 3, 2, 'Ajándékkosár: sajt, lekvár, bor', 'db', '5', '18900', 0, NULL),
  (17, 10, 1, 1, 1, 'Hordozható számítógép, 14"', 'db', '1', '279900', 0, NULL),
  (18, 10, 2, 1, 5, 'Hosszabbító kábel, 3 × 1,5 mm²', 'm', '12.5', '689.5', 0, NULL),
  (19, 10, 3, 2, 3, 'Kiszállítás', 'alkalom', '1', '2500', 0, NULL),
  (20, 11, 1, 3, 2, 'Ajándékkosár: sajt, lekvár, bor', 'db', '2', '18900', 0, NULL),
  (21, 12, 1, 3, 2, 'Ajándékkosár: sajt, lekvár, bor', 'db', '2', '18900', 0, NULL),
  (22, 13, 1, 1, 3, 'Érlelt kecskesajt', 'kg', '20', '3900', 0, NULL),
  (23, 13, 2, 1, 5, 'Hosszabbító kábel, 3 × 1,5 mm²', 'm', '100', '412.25', 0, NULL),
  (24, 14, 1, 1, 2, 'Porral oltó tűzoltó készülék, 6 kg', 'db', '10', '10900', 0, NULL),
  (25, 15, 1, 1, 4, 'Zománcfesték, selyemfényű', 'doboz', '24', '2890', 0, NULL),
  (26, 16, 1, 2, 2, 'Rendszeres karbantartás', 'hó', '1', '28000', 0, NULL),
  (27, 17, 1, 2, 2, 'Rendszeres karbantartás', 'hó', '1', '28000', 0, NULL),
  -- Origin mode 2: made from the item whose key is the last value.
  (28, 18, 1, 1, 4, 'Zománcfesték, selyemfényű', 'doboz', '5', '4250', 0, NULL),
  (29, 18, 2, 1, 2, 'Porral oltó tűzoltó készülék, 6 kg', 'db', '2', '15490', 0, NULL),
  (30, 19, 1, 1, 4, 'Zománcfesték, selyemfényű', 'doboz', '5', '4250', 2, 28),
  (31, 19, 2, 1, 2, 'Porral oltó tűzoltó készülék, 6 kg', 'db', '2', '15490', 2, 29),
  (32, 20, 1, 1, 4, 'Zománcfesték, selyemfényű', 'doboz', '2', '4250', 2, 30),
  (33, 20, 2, 1, 2, 'Porral oltó tűzoltó készülék, 6 kg', 'db', '1', '15490', 2, 31),
  (34, 21, 1, 1, 4, 'Zománcfesték, selyemfényű', 'doboz', '3', '4250', 2, 30),
  (35, 21, 2, 1, 2, 'Porral oltó tűzoltó készülék, 6 kg', 'db', '1', '15490', 2, 31),
  (36, 22, 1, 1, 1, 'Hordozható számítógép, 14"', 'db', '3', '289900', 2, 1),
  (37, 22, 2, 2, 1, 'Üzembe helyezés', 'óra', '2', '12000', 2, 2),
  (38, 23, 1, 1, 1, 'Hordozható számítógép, 14"', 'db', '3', '289900', 2, 36),
  (39, 23, 2, 2, 1, 'Üzembe helyezés', 'óra', '2', '12000', 2, 37),
  (40, 24, 1, 1, 1, 'Hordozható számítógép, 14"', 'db', '3', '289900', 2, 36),
  (41, 24, 2, 2, 1, 'Üzembe helyezés', 'óra', '2', '12000', 2, 37);

-- Variable -1 is the quantity of a row.
insert into t_invoiceitemdata (t_invoiceitem_1, t_itemvariable_1, row, value) values
  (2, 7, 0, 'M-2025/014'), (2, 9, 0, '2025.03.28'),
  (3, 12, 0, 'fólia'),
  (3, -1, 1, '2'), (3, 3, 1, '2025.06.30'),
  (3, -1, 2, '2.5'), (3, 3, 2, '2025.07.15'),
  (4, 11, 0, 'futár'),
  (4, -1, 1, '1'), (4, 1, 1, 'PO6-118201'), (4, 3, 1, '2030.01.31'),
  (4, -1, 2, '1'), (4, 1, 2, 'PO6-118202'), (4, 3, 2, '2030.01.31'),
  (5, -1, 1, '2'), (5, 5, 1, 'zöld'), (5, 6, 1, '2.5 l'),
  (5, -1, 2, '1'), (5, 5, 2, 'fehér'), (5, 6, 2, '0.75 l'),
  (6, -1, 1, '2'), (6, 5, 1, 'zöld'), (6, 6, 1, '2.5 l'),
  (6, -1, 2, '1'), (6, 5, 2, 'fehér'), (6, 6, 2, '0.75 l'),
  (7, -1, 1, '1'), (7, 1, 1, 'NB14-5A01'), (7, 4, 1, '2028.03.31'), (7, 2, 1, 'B raktár, 3. polc'),
  (7, -1, 2, '1'), (7, 1, 2, 'NB14-5A02'), (7, 4, 2, '2028.03.31'), (7, 2, 2, 'B raktár, 3. polc'),
  (8, 12, 0, 'papír'),
  (8, -1, 1, '1.25'), (8, 3, 1, '2025.06.30'),
  (8, -1, 2, '1.25'), (8, 3, 2, '2025.07.15'),
  (9, 7, 0, 'M-2025/015'), (9, 9, 0, '2025.03.10'),
  (10, 11, 0, 'személyes átvétel'),
  (10, -1, 1, '1'), (10, 1, 1, 'IM-2025-0007'), (10, 4, 1, '2027.03.31'),
  (13, 11, 0, ''),
  (13, -1, 1, '1'), (13, 1, 1, 'PO6-118203'), (13, 3, 1, ''),
  (13, -1, 2, '1'), (13, 1, 2, ''), (13, 3, 2, '2030.01.31'),
  (14, 7, 0, ''), (14, 10, 0, ''),
  (15, -1, 1, '2'), (15, 5, 1, 'piros'), (15, 6, 1, '0.75 l'),
  (15, -1, 2, '2'), (15, 5, 2, 'kék'), (15, 6, 2, '2.5 l'),
  (15, -1, 3, '1'), (15, 5, 3, 'fekete'), (15, 6, 3, ''),
  (16, 8, 0, 'Névre szóló kártyával kérik.'), (16, 12, 0, 'díszdoboz'),
  (17, -1, 1, '1'), (17, 1, 1, 'NB14-4C77'), (17, 4, 1, '2028.03.17'), (17, 2, 1, ''),
  (18, 8, 0, 'Egy darabban, dobon.'),
  (20, 8, 0, 'Átvétel a portán.'), (20, 12, 0, 'díszdoboz'),
  (20, -1, 1, '2'), (20, 3, 1, '2025.05.31'),
  (21, 8, 0, 'Átvétel a portán.'), (21, 12, 0, 'díszdoboz'),
  (21, -1, 1, '2'), (21, 3, 1, '2025.05.31'),
  (22, -1, 1, '12.5'), (22, 3, 1, '2025.08.15'), (22, 2, 1, 'Hűtő, 1. ajtó'),
  (22, -1, 2, '7.5'), (22, 3, 2, '2025.09.01'), (22, 2, 2, 'Hűtő, 2. ajtó'),
  (23, 10, 0, '2027.03.20'),
  (25, -1, 1, '12'), (25, 5, 1, 'fehér'), (25, 6, 1, '0.75 l'),
  (25, -1, 2, '12'), (25, 5, 2, 'zöld'), (25, 6, 2, '2.5 l'),
  (26, 7, 0, 'K-2024/3'), (26, 9, 0, '2025.02.28'),
  (27, 7, 0, 'K-2024/3'), (27, 9, 0, '2025.02.28'),
  (28, -1, 1, '3'), (28, 5, 1, 'piros'), (28, 6, 1, '0.75 l'),
  (28, -1, 2, '2'), (28, 5, 2, 'kék'), (28, 6, 2, '2.5 l'),
  (29, 11, 0, 'futár'),
  (30, -1, 1, '3'), (30, 5, 1, 'piros'), (30, 6, 1, '0.75 l'),
  (30, -1, 2, '2'), (30, 5, 2, 'kék'), (30, 6, 2, '2.5 l'),
  (31, 11, 0, 'futár'),
  (31, -1, 1, '1'), (31, 1, 1, 'PO6-118301'), (31, 3, 1, '2030.02.28'),
  (31, -1, 2, '1'), (31, 1, 2, 'PO6-118302'), (31, 3, 2, '2030.02.28'),
  (32, -1, 1, '2'), (32, 5, 1, 'piros'), (32, 6, 1, '0.75 l'),
  (33, 11, 0, 'futár'),
  (33, -1, 1, '1'), (33, 1, 1, 'PO6-118301'), (33, 3, 1, '2030.02.28'),
  (34, -1, 1, '1'), (34, 5, 1, 'piros'), (34, 6, 1, '0.75 l'),
  (34, -1, 2, '2'), (34, 5, 2, 'kék'), (34, 6, 2, '2.5 l'),
  (35, 11, 0, 'futár'),
  (35, -1, 2, '1'), (35, 1, 2, 'PO6-118302'), (35, 3, 2, '2030.02.28'),
  (36, -1, 1, '1'), (36, 1, 1, 'NB14-5B01'), (36, 4, 1, '2028.03.31'), (36, 2, 1, ''),
  (36, -1, 2, '1'), (36, 1, 2, 'NB14-5B02'), (36, 4, 2, '2028.03.31'), (36, 2, 2, ''),
  (36, -1, 3, '1'), (36, 1, 3, 'NB14-5B03'), (36, 4, 3, '2028.03.31'), (36, 2, 3, ''),
  (37, 7, 0, 'M-2025/014'), (37, 9, 0, '2025.03.28'),
  (38, -1, 1, '1'), (38, 1, 1, 'NB14-5B01'), (38, 4, 1, '2028.03.31'), (38, 2, 1, ''),
  (38, -1, 2, '1'), (38, 1, 2, 'NB14-5B02'), (38, 4, 2, '2028.03.31'), (38, 2, 2, ''),
  (38, -1, 3, '1'), (38, 1, 3, 'NB14-5B03'), (38, 4, 3, '2028.03.31'), (38, 2, 3, ''),
  (39, 7, 0, 'M-2025/014'), (39, 9, 0, '2025.03.28'),
  (40, -1, 1, '1'), (40, 1, 1, 'NB14-5B01'), (40, 4, 1, '2028.03.31'), (40, 2, 1, ''),
  (40, -1, 2, '1'), (40, 1, 2, 'NB14-5B02'), (40, 4, 2, '2028.03.31'), (40, 2, 2, ''),
  (40, -1, 3, '1'), (40, 1, 3, 'NB14-5B03'), (40, 4, 3, '2028.03.31'), (40, 2, 3, ''),
  (41, 7, 0, 'M-2025/014'), (41, 9, 0, '2025.03.28');
